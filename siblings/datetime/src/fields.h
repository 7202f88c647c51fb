#pragma once

#include <string>
#include <string_view>

namespace QX {

/// Splits off the first run of equal characters of a format that is not empty, and removes it from the
/// format.
std::string_view takeRun(std::string_view& format);

/// Appends a number that is not negative with at least `digits` digits.
void appendDigits(std::string& out, int number, std::size_t digits);

} // namespace QX
