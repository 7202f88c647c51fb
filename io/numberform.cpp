#include "io/numberform.h"

#include "qx/cell.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace QX {

namespace {

constexpr double tooLarge = 1e15;
constexpr double tooSmall = 1e-6;
constexpr std::uint64_t mantissaEnd = 1'000'000'000'000'000; // 15 digits survive in a double
constexpr std::array<double, 20> powers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,
                                           1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes digits from the front of a text into a number, of which there may be too many for it.
char const* takeDigits(char const* at, char const* end, std::uint64_t& number) {
    for (; at != end && isDigit(*at); ++at) {
        number = number * 10 + static_cast<unsigned>(*at - '0');
    }
    return at;
}

bool mayBeNumber(std::string_view text) {
    return text.find_first_not_of("0123456789+-.eE \t") == std::string_view::npos &&
           text.find_first_of("0123456789") != std::string_view::npos;
}

} // namespace

bool readPlain(std::string_view text, EndZeros zeros, ReadNumber& number) {
    constexpr std::size_t mostDigits = 19; // no more overflow the mantissa
    char const* const end = text.data() + text.size();
    char const* const first = text.data() + (text.front() == '-' ? 1 : 0);
    std::uint64_t mantissa = 0;
    char const* at = takeDigits(first, end, mantissa);
    std::ptrdiff_t const whole = at - first;
    if (whole == 0 || (*first == '0' && whole != 1)) {
        return false;
    }
    std::size_t places = 0;
    if (at != end && *at == '.') {
        char const* const fraction = at + 1;
        at = takeDigits(fraction, end, mantissa);
        places = static_cast<std::size_t>(at - fraction);
    }
    bool const pointless = places == 0 && at[-1] == '.';
    bool const zero = places != 0 && at[-1] == '0';
    if (at != end || pointless || (zero && zeros == EndZeros::Keep) ||
        static_cast<std::size_t>(whole) + places > mostDigits || mantissa >= mantissaEnd) {
        return false;
    }
    double const value = static_cast<double>(mantissa) / powers[places];
    if (places != 0 && value < tooSmall && value != 0) {
        return false;
    }
    number.value = text.front() == '-' ? -value : value;
    number.places = zero ? static_cast<unsigned>(places) : 0;
    return true;
}

void appendNumber(std::string& text, double number) {
    if (!std::isfinite(number)) {
        text += std::isnan(number) ? "nan" : number < 0 ? "-inf" : "inf";
        return;
    }
    std::array<char, 32> buffer; // the longest has 17 digits, sign, point and exponent or zeros
    char* const end = buffer.data() + buffer.size();
    double const size = std::fabs(number);
    if (size < tooLarge && number == std::trunc(number)) {
        if (number == 0 && std::signbit(number)) {
            text += '-';
        }
        auto const whole = static_cast<std::int64_t>(number);
        text.append(buffer.data(), std::to_chars(buffer.data(), end, whole).ptr);
        return;
    }
    auto const form =
        size < tooLarge && size >= tooSmall ? std::chars_format::fixed : std::chars_format::scientific;
    text.append(buffer.data(), std::to_chars(buffer.data(), end, number, form).ptr);
}

void appendFixed(std::string& text, double number, unsigned places) {
    std::array<char, 64> buffer; // fewer than 23 places behind 15 digits, sign and point
    auto const written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                       std::chars_format::fixed, static_cast<int>(places));
    text.append(buffer.data(), written.ptr);
}

bool readExact(std::string_view text, EndZeros zeros, ReadNumber& number) {
    constexpr std::size_t longest = 32;
    constexpr std::size_t safeSize =
        16; // with a point, too few digits to be more than readPlain() takes
    if (text.empty() || text.size() > longest || (!isDigit(text.front()) && text.front() != '-')) {
        return false;
    }
    if (readPlain(text, zeros, number)) {
        return true;
    }
    if (text.size() <= safeSize && text.find('e') == std::string_view::npos) {
        return false;
    }
    number.places = 0;
    auto const read = std::from_chars(text.data(), text.data() + text.size(), number.value);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size() ||
        !std::isfinite(number.value)) {
        return false;
    }
    std::string written;
    appendNumber(written, number.value);
    return written == text;
}

bool readAny(std::string_view text, double& number) {
    if (text == "nan" || text == "inf" || text == "-inf") {
        double const infinity = std::numeric_limits<double>::infinity();
        number = text == "nan"   ? std::numeric_limits<double>::quiet_NaN()
                 : text == "inf" ? infinity
                                 : -infinity;
        return true;
    }
    if (!mayBeNumber(text)) {
        return false;
    }
    Str kept;
    Cell const cell(kept.assign(text.data(), text.size()));
    return cell.isA() == Cell::NumericCell && cell.get(number).ok();
}

} // namespace QX
