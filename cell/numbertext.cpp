#include "cell/numbertext.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <ostream>
#include <string>

namespace QX {

namespace {

constexpr std::string_view exactPrefix = "##";
constexpr std::string_view ratioPrefix = "[Numeric]";
constexpr std::string_view space = " \t\n\v\f\r";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view skipSpace(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(space), text.size()));
}

/// Says of a decimal number beyond the range of doubles whether it is the large or the small side.
bool isHuge(std::string_view number) {
    std::size_t const mark = std::min(number.find_first_of("eE"), number.size());
    std::string_view const mantissa = number.substr(0, mark);
    std::size_t const point = std::min(mantissa.find('.'), mantissa.size());
    std::size_t const first = mantissa.find_first_of("123456789");
    long long const place = static_cast<long long>(point) - static_cast<long long>(first);
    std::string_view exponent = number.substr(std::min(mark + 1, number.size()));
    bool const negative = exponent.starts_with('-');
    exponent.remove_prefix(negative || exponent.starts_with('+') ? 1 : 0);
    long long power = 0;
    auto const read = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
    constexpr long long beyond = std::numeric_limits<long long>::max() / 2;
    if (read.ec == std::errc::result_out_of_range || power > beyond) {
        return !negative; // no mantissa in memory is long enough to make up for such an exponent
    }
    return place + (negative ? -power : power) > 0;
}

AnalyticDouble readDecimal(std::string_view text) {
    text = skipSpace(text);
    bool const negative = text.starts_with('-');
    text.remove_prefix(negative || text.starts_with('+') ? 1 : 0);
    if (text.empty() || (!isDigit(text.front()) && text.front() != '.')) {
        return AnalyticDouble(); // from_chars would go on to a second sign, "inf" and "nan"
    }
    char const* const end = text.data() + text.size();
    double value = 0;
    auto const read = std::from_chars(text.data(), end, value);
    if (read.ec == std::errc::invalid_argument || read.ptr != end) {
        return AnalyticDouble();
    }
    if (read.ec == std::errc::result_out_of_range) {
        if (isHuge(text)) {
            return AnalyticDouble();
        }
        value = 0;
    }
    return validNumber(negative ? -value : value);
}

/// Takes an int from the front of `text`; false when there is none or it is out of range.
bool takeInt(std::string_view& text, int& number) {
    text = skipSpace(text);
    if (text.starts_with('+') && text.size() > 1 && isDigit(text[1])) {
        text.remove_prefix(1);
    }
    auto const read = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
    return read.ec == std::errc();
}

/// Reads two ints that make up the whole text behind `skipped` characters.
bool readPair(std::string_view text, std::size_t skipped, int& first, int& second) {
    text.remove_prefix(std::min(skipped, text.size()));
    return takeInt(text, first) && takeInt(text, second) && text.empty();
}

AnalyticDouble readExact(std::string_view text) {
    int low = 0;
    int high = 0;
    if (!readPair(text, exactPrefix.size() + 1, low, high)) {
        return AnalyticDouble();
    }
    auto const upper = static_cast<std::uint64_t>(static_cast<std::uint32_t>(high));
    return validNumber(std::bit_cast<double>(upper << 32U | static_cast<std::uint32_t>(low)));
}

AnalyticDouble readRatio(std::string_view text) {
    int numerator = 0;
    int denominator = 0;
    bool const read = readPair(text, ratioPrefix.size() + 1, numerator, denominator);
    return read ? AnalyticDouble(numerator, denominator) : AnalyticDouble();
}

int lowHalf(double number) {
    return static_cast<int>(static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(number)));
}

int highHalf(double number) {
    return static_cast<int>(static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(number) >> 32U));
}

} // namespace

AnalyticDouble readNumber(std::string_view text) {
    if (text.starts_with(exactPrefix)) {
        return readExact(text);
    }
    return text.starts_with(ratioPrefix) ? readRatio(text) : readDecimal(text);
}

void appendGeneral(std::string& text, double number, int precision) {
    std::array<char, 64> buffer; // enough for 17 digits with sign, point and exponent
    char* const end = buffer.data() + buffer.size();
    int const whole = truncated(number);
    // The shorter way for most numbers, but zero has a sign, and six digits are shown without an
    // exponent.
    bool const plain = number == whole && whole != 0 && std::abs(number) < 1e6;
    auto const written =
        plain ? std::to_chars(buffer.data(), end, whole)
              : std::to_chars(buffer.data(), end, number, std::chars_format::general, precision);
    text.append(buffer.data(), written.ptr);
}

void appendExact(std::string& text, double number) {
    text += exactPrefix;
    text += ' ';
    text += std::to_string(lowHalf(number));
    text += ' ';
    text += std::to_string(highHalf(number));
}

std::ostream& writeExact(std::ostream& os, double number) {
    return os << exactPrefix << ' ' << lowHalf(number) << ' ' << highHalf(number);
}

Str exactText(double number) {
    std::string text;
    appendExact(text, number);
    return text;
}

Str fixedText(double number, int precision) {
    constexpr std::size_t wholeDigits =
        std::numeric_limits<double>::max_exponent10 + 3; // digits, sign and point
    std::string text(wholeDigits + static_cast<std::size_t>(precision), '\0');
    auto const written = std::to_chars(text.data(), text.data() + text.size(), number,
                                       std::chars_format::fixed, precision);
    text.resize(static_cast<std::size_t>(written.ptr - text.data()));
    return text;
}

} // namespace QX
