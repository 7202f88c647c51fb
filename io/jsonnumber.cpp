#include "io/jsonnumber.h"

#include "io/numberform.h"
#include "qx/cell.h"

#include <array>
#include <charconv>

namespace QX {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes digits from the front; false when there are none.
bool takeDigits(std::string_view& text) {
    std::size_t count = 0;
    while (count < text.size() && isDigit(text[count])) {
        ++count;
    }
    text.remove_prefix(count);
    return count > 0;
}

/// True when a whole number has the same digits as the double next to it.
bool sameDigits(std::string_view literal, double number) {
    std::array<char, 320> digits; // the largest has 309 and a sign
    auto const written =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return std::string_view(digits.data(), static_cast<std::size_t>(written.ptr - digits.data())) ==
           literal;
}

/// Reads a number that is too small or too large for std::from_chars.
JsonNumberFit readExtreme(std::string_view literal, double& number) {
    Cell const cell{Str(std::string(literal))};
    return cell.get(number).ok() ? JsonNumberFit::Held : JsonNumberFit::Beyond;
}

} // namespace

JsonNumberFit readJsonNumber(std::string_view literal, double& number) {
    ReadNumber plain;
    if (readPlain(literal, EndZeros::Drop, plain)) {
        number = plain.value;
        return JsonNumberFit::Held;
    }
    auto const read = std::from_chars(literal.data(), literal.data() + literal.size(), number);
    if (read.ec != std::errc()) {
        return readExtreme(literal, number);
    }
    bool const whole = literal.find_first_of(".eE") == std::string_view::npos;
    return !whole || sameDigits(literal, number) ? JsonNumberFit::Held : JsonNumberFit::Digits;
}

bool isJsonNumber(std::string_view text) {
    text.remove_prefix(text.starts_with('-') ? 1 : 0);
    bool const zero = text.starts_with('0');
    std::size_t const size = text.size();
    if (!takeDigits(text) || (zero && size - text.size() > 1)) {
        return false;
    }
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        if (!takeDigits(text)) {
            return false;
        }
    }
    if (text.starts_with('e') || text.starts_with('E')) {
        text.remove_prefix(1);
        text.remove_prefix(text.starts_with('-') || text.starts_with('+') ? 1 : 0);
        if (!takeDigits(text)) {
            return false;
        }
    }
    return text.empty();
}

} // namespace QX
