#include "numbers.h"

#include "failure.h"

#include <charconv>
#include <cmath>

namespace qxtab {

namespace {

std::size_t const mostDigits = 15; // every whole number of so many digits is a double

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t digitsAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && isDigit(text[end])) {
        ++end;
    }
    return end - at;
}

// What stands behind the whole part: a fraction, an exponent, or both.
bool isPlainRest(std::string_view rest) {
    bool fraction = false;
    if (!rest.empty() && rest.front() == '.') {
        std::size_t const digits = digitsAt(rest, 1);
        fraction = digits != 0;
        if (!fraction) {
            return false;
        }
        rest.remove_prefix(1 + digits);
    }
    if (rest.empty()) {
        return true;
    }
    if (rest.front() != 'e' && rest.front() != 'E') {
        return false;
    }
    rest.remove_prefix(1);
    bool const sign = !rest.empty() && (rest.front() == '+' || rest.front() == '-');
    rest.remove_prefix(sign ? 1 : 0);
    return (sign || fraction) && !rest.empty() && digitsAt(rest, 0) == rest.size();
}

} // namespace

bool isPlainNumber(std::string_view text) {
    if (!text.empty() && text.front() == '-') {
        text.remove_prefix(1);
    }
    std::size_t const digits = digitsAt(text, 0);
    if (digits == text.size()) {
        return digits == 1 || (digits > 1 && digits <= mostDigits && text.front() != '0');
    }
    bool const needlessZero = digits > 1 && text.front() == '0';
    bool const bare = digits == 0 && text.front() != '.';
    return !needlessZero && !bare && isPlainRest(text.substr(digits)) && numberIn(text).has_value();
}

std::optional<double> numberIn(std::string_view text) {
    if (text.size() > 1 && text.front() == '+' && (isDigit(text[1]) || text[1] == '.')) {
        text.remove_prefix(1);
    }
    std::size_t const sign = !text.empty() && text.front() == '-' ? 1 : 0;
    if (text.size() == sign || (!isDigit(text[sign]) && text[sign] != '.')) {
        return std::nullopt; // inf and nan
    }
    double number = 0;
    char const* const end = text.data() + text.size();
    auto const read = std::from_chars(text.data(), end, number);
    bool const whole = read.ec == std::errc() && read.ptr == end;
    return whole ? std::optional<double>(number) : std::nullopt;
}

std::string numberText(double number) {
    return bytes(QX::Str::asString(number));
}

} // namespace qxtab
