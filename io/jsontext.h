#pragma once

#include "qx/json.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace QX {

/// True for a text that is UTF-8 throughout.
bool isUtf8(std::string_view text);

/// Writes the pieces of JSON to a stream.
class JsonText {
public:
    JsonText(std::ostream& out, JsonWriteOptions const& options) : out_(out), options_(options) {}

    void put(char c) { text_ += c; }
    void put(std::string_view text) { text_ += text; }
    /// A string in quotes. Raises IoError for bytes that are no UTF-8, unless they are to be replaced.
    void putString(std::string_view text);
    void putNumber(double number);
    /// A line end and blanks for a depth, if lines are to be indented.
    void putLine(std::size_t depth);
    /// Hands on what has come together, if that is much.
    void flushSome() {
        if (text_.size() >= pieceSize) {
            flush();
        }
    }
    /// Hands on everything. Raises IoError.
    void flush();

private:
    static constexpr std::size_t pieceSize = 1 << 16;

    void putEscaped(std::string_view text);

    std::ostream& out_;
    JsonWriteOptions const& options_;
    std::string text_;
};

} // namespace QX
