#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace QX {

/// Appends the shortest text that reads back as the same double: plain digits from 0.000001 to below
/// 1e15 and for 0, an exponent beyond; nan, inf or -inf.
void appendNumber(std::string& text, double number);

/// How many zeros at the end a text may lose that is read as a number.
enum class EndZeros { Keep, Drop };

/// A number that was read from a text.
struct ReadNumber {
    double value = 0;
    /// The digits behind the point when zeros at the end were dropped, otherwise 0.
    unsigned places = 0;
};

/// Reads a text that appendNumber() writes for some number, or with `Drop` one of at most 15 digits that
/// differs from that by zeros at the end alone. False for every other text.
bool readExact(std::string_view text, EndZeros zeros, ReadNumber& number);

/// Reads a number of plain digits, no more of them than survive in a double; false for all other texts.
/// The text is not empty.
bool readPlain(std::string_view text, EndZeros zeros, ReadNumber& number);

/// Reads any decimal number, as Cell(Str const&) does, and what appendNumber() writes of numbers that are
/// not finite.
bool readAny(std::string_view text, double& number);

/// Appends the number with so many digits behind the point.
void appendFixed(std::string& text, double number, unsigned places);

} // namespace QX
