#include "qxbase/str.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <ostream>
#include <string_view>
#include <utility>

namespace QX {

namespace {

unsigned char foldCase(char c) {
    return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

int compareTexts(std::string_view left, std::string_view right, bool ignoreCase) {
    if (!ignoreCase) {
        return left.compare(right);
    }
    std::size_t const shared = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < shared; ++i) {
        int const difference = foldCase(left[i]) - foldCase(right[i]);
        if (difference != 0) {
            return difference;
        }
    }
    return left.size() < right.size() ? -1 : static_cast<int>(left.size() > right.size());
}

} // namespace

Str::Str(char const* text) : text_(text == nullptr ? "" : text) {
}

Str::Str(std::string const& text) : text_(text) {
}

Str::Str(std::string&& text) noexcept : text_(std::move(text)) {
}

void Str::anchor() const {
}

Str Str::operator+(Str const& other) const {
    Str sum;
    sum.text_.reserve(text_.size() + other.text_.size());
    sum.text_ += text_;
    sum.text_ += other.text_;
    return sum;
}

Str& Str::operator+=(Str const& other) {
    text_ += other.text_;
    return *this;
}

int Str::compare(Str const& other, bool ignoreCase) const {
    return compareTexts(text_, other.text_, ignoreCase);
}

int Str::comparePrefix(Str const& text, bool ignoreCase, std::size_t least) const {
    if (text_.size() < least) {
        return -1;
    }
    return compareTexts(text_, std::string_view(text.text_).substr(0, text_.size()), ignoreCase);
}

Str Str::asString(int number) {
    return std::to_string(number);
}

Str Str::asString(double number) {
    if (std::isnan(number)) {
        return "nan";
    }
    double const plainLimit = 1e15; // above it the shortest form is the readable one
    bool const plain = std::fabs(number) < plainLimit && std::trunc(number) == number;
    std::array<char, 32> buffer;
    char* const end = buffer.data() + buffer.size();
    auto const written = plain ? std::to_chars(buffer.data(), end, number, std::chars_format::fixed)
                               : std::to_chars(buffer.data(), end, number);
    return std::string(buffer.data(), written.ptr);
}

std::ostream& operator<<(std::ostream& os, Str const& text) {
    return os << std::string_view(text.data(), text.size());
}

} // namespace QX
