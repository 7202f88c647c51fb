#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qxtab {

/// Whether a text is a number as people and programs write one, so that a column of such texts may be
/// taken for numbers: digits with an optional minus and fraction, without needless zeros in front, and
/// no more than 15 of them in a whole number; an exponent only with a sign or behind a fraction.
///
///     numbers  0  -7  12.50  .5  1e-07  1.5E8          codes  007  +49  0E8  1E5  1234567890123456
bool isPlainNumber(std::string_view text);

/// The number that a text is in decimal, whatever it looks like otherwise (007, +5, 1E5); nothing for
/// anything else, and beyond the range of a double.
std::optional<double> numberIn(std::string_view text);

/// A number with as many digits as it takes to read it again: plain digits where these are few.
std::string numberText(double number);

} // namespace qxtab
