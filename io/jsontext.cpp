#include "io/jsontext.h"

#include "io/message.h"
#include "io/numberform.h"

#include <cmath>
#include <cstdint>
#include <ostream>

namespace QX {

namespace {

bool isPlain(char c) {
    return static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\';
}

bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// The length of the character at the front, or 0 when the bytes are none.
std::size_t characterSize(std::string_view text) {
    auto const first = static_cast<unsigned char>(text.front());
    std::size_t const size = first < 0x80   ? 1
                             : first < 0xC2 ? 0
                             : first < 0xE0 ? 2
                             : first < 0xF0 ? 3
                                            : 4;
    if (size == 0 || first > 0xF4 || text.size() < size) {
        return 0;
    }
    for (std::size_t i = 1; i < size; ++i) {
        if (!isContinuation(text[i])) {
            return 0;
        }
    }
    auto const second = size > 1 ? static_cast<unsigned char>(text[1]) : 0U;
    bool const overlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    bool const surrogate = first == 0xED && second >= 0xA0;
    bool const beyond = first == 0xF4 && second >= 0x90;
    return overlong || surrogate || beyond ? 0 : size;
}

/// Where the first byte stands that begins no character.
std::size_t validSize(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        std::size_t const size =
            static_cast<unsigned char>(text[at]) < 0x80 ? 1 : characterSize(text.substr(at));
        if (size == 0) {
            return at;
        }
        at += size;
    }
    return at;
}

} // namespace

bool isUtf8(std::string_view text) {
    return validSize(text) == text.size();
}

void JsonText::putString(std::string_view text) {
    text_ += '"';
    for (;;) {
        std::size_t const valid = validSize(text);
        putEscaped(text.substr(0, valid));
        if (valid == text.size()) {
            break;
        }
        if (!options_.replaceInvalid) {
            throw IoError(options_.name, 0, 0, "the text " + quotedForMessage(text) + " is no UTF-8");
        }
        text_ += "\xEF\xBF\xBD";
        text.remove_prefix(valid + 1);
    }
    text_ += '"';
}

void JsonText::putEscaped(std::string_view text) {
    static char const digits[] = "0123456789abcdef";
    static constexpr std::string_view letters = "\"\\\b\f\n\r\t";
    static constexpr std::string_view escapes = "\"\\bfnrt";
    std::size_t from = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (isPlain(text[at])) {
            continue;
        }
        text_ += text.substr(from, at - from);
        from = at + 1;
        std::size_t const letter = letters.find(text[at]);
        text_ += '\\';
        if (letter != std::string_view::npos) {
            text_ += escapes[letter];
        } else {
            auto const byte = static_cast<unsigned char>(text[at]);
            text_ += {'u', '0', '0', digits[byte >> 4U], digits[byte & 0xFU]};
        }
    }
    text_ += text.substr(from);
}

void JsonText::putNumber(double number) {
    constexpr double largest =
        9007199254740992; // 2 to the 53rd, up to which every whole number is a double
    if (std::fabs(number) <= largest && number == std::trunc(number) && number != 0) {
        text_ += std::to_string(static_cast<std::int64_t>(number));
    } else {
        appendNumber(text_, number);
    }
}

void JsonText::putLine(std::size_t depth) {
    if (options_.layout == JsonLayout::Indented) {
        text_ += '\n';
        text_.append(4 * depth, ' ');
    }
}

void JsonText::flush() {
    out_.write(text_.data(), static_cast<std::streamsize>(text_.size()));
    if (!out_) {
        throw IoError(options_.name, 0, 0, "the output takes no more");
    }
    text_.clear();
}

} // namespace QX
