#pragma once

#include "failure.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace qxtab {

/// A part of an expression: a number, a text in quotes, the name of a column or function, or a sign.
struct Token {
    enum Kind { Number, Text, Name, Column, Sign, End };

    Kind kind = End;
    std::string text; ///< without quotes; the letters of a sign or of a number
    double number = 0;
    std::size_t at = 0; ///< where it begins, in bytes
};

/// Splits an expression into its parts.
class Tokens {
public:
    explicit Tokens(std::string_view text);

    /// The part that comes next.
    Token const& next() const { return next_; }
    /// Goes on to the one behind it, and returns the former.
    Token take();
    /// Goes on if the next part is this sign or word.
    bool skip(std::string_view signOrWord);
    bool isNext(std::string_view signOrWord) const;
    /// Raises Misuse: the message with the column, counted in characters, and the expression.
    [[noreturn]] void fail(std::size_t at, std::string const& message) const;

private:
    Token read();
    Token readNumber();
    Token readQuoted(char end, Token::Kind kind);
    Token readSign();

    std::string text_;
    std::size_t at_ = 0;
    Token next_;
};

} // namespace qxtab
