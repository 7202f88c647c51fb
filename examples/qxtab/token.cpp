#include "token.h"

#include "numbers.h"

#include <algorithm>

namespace qxtab {

namespace {

char const* const signs[] = {"==", "!=", "<=", ">=", "<", ">", "=", "+", "-",
                             "*",  "/",  "%",  "&",  "(", ")", ",", ";"};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Letters of any alphabet: what is not ASCII belongs to names.
bool isNamePart(char c) {
    char const lower = static_cast<char>(c | 0x20);
    return (lower >= 'a' && lower <= 'z') || c == '_' || isDigit(c) ||
           static_cast<unsigned char>(c) >= 0x80;
}

std::size_t columnOfByte(std::string_view text, std::size_t at) {
    std::string_view const before = text.substr(0, at);
    return 1 + static_cast<std::size_t>(std::count_if(before.begin(), before.end(),
                                                      [](char c) { return (c & 0xC0) != 0x80; }));
}

} // namespace

Tokens::Tokens(std::string_view text) : text_(text) {
    next_ = read();
}

Token Tokens::take() {
    Token token = std::move(next_);
    next_ = read();
    return token;
}

bool Tokens::isNext(std::string_view signOrWord) const {
    return (next_.kind == Token::Sign || next_.kind == Token::Name) && next_.text == signOrWord;
}

bool Tokens::skip(std::string_view signOrWord) {
    bool const found = isNext(signOrWord);
    if (found) {
        take();
    }
    return found;
}

void Tokens::fail(std::size_t at, std::string const& message) const {
    throw Misuse("column " + std::to_string(columnOfByte(text_, at)) + " of '" + text_ +
                 "': " + message);
}

Token Tokens::read() {
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t' || text_[at_] == '\n')) {
        ++at_;
    }
    if (at_ == text_.size()) {
        return {Token::End, "", 0, at_};
    }
    char const c = text_[at_];
    bool const fraction = c == '.' && at_ + 1 < text_.size() && isDigit(text_[at_ + 1]);
    if (isDigit(c) || fraction) {
        return readNumber();
    }
    if (c == '"' || c == '\'') {
        return readQuoted(c, Token::Text);
    }
    if (c == '{') {
        return readQuoted('}', Token::Column);
    }
    if (!isNamePart(c)) {
        return readSign();
    }
    std::size_t const start = at_;
    while (at_ < text_.size() && isNamePart(text_[at_])) {
        ++at_;
    }
    return {Token::Name, text_.substr(start, at_ - start), 0, start};
}

Token Tokens::readNumber() {
    std::size_t const start = at_;
    while (at_ < text_.size()) {
        bool const exponentSign = (text_[at_] == '+' || text_[at_] == '-') && at_ > start &&
                                  (text_[at_ - 1] == 'e' || text_[at_ - 1] == 'E');
        if (!isNamePart(text_[at_]) && text_[at_] != '.' && !exponentSign) {
            break;
        }
        ++at_;
    }
    std::string const digits = text_.substr(start, at_ - start);
    if (!isPlainNumber(digits)) {
        fail(start, digits + " is not a plain number; a text stands in quotes, a column's name in {}");
    }
    return {Token::Number, digits, *numberIn(digits), start};
}

// A quote inside is written twice.
Token Tokens::readQuoted(char end, Token::Kind kind) {
    std::size_t const start = at_;
    std::string content;
    do {
        ++at_;
        std::size_t const stop = text_.find(end, at_);
        if (stop == std::string::npos) {
            fail(start, std::string("there is no ") + end + " that closes what begins here");
        }
        content += text_.substr(at_, stop - at_);
        at_ = stop + 1;
        content += at_ < text_.size() && text_[at_] == end ? std::string(1, end) : "";
    } while (at_ < text_.size() && text_[at_] == end);
    return {kind, content, 0, start};
}

Token Tokens::readSign() {
    for (char const* sign : signs) {
        std::string_view const letters(sign);
        if (std::string_view(text_).substr(at_).starts_with(letters)) {
            at_ += letters.size();
            return {Token::Sign, sign, 0, at_ - letters.size()};
        }
    }
    fail(at_, "'" + text_.substr(at_, 1) + "' was not expected");
}

} // namespace qxtab
