#pragma once

#include "qx/cell.h"

#include <limits>
#include <string>
#include <string_view>

namespace QX {

/// The printed form of an empty cell, and the text that reads as one.
inline constexpr std::string_view emptyText = "[Empty]";

/// So many digits tell all doubles apart.
inline constexpr int displayDigits = std::numeric_limits<double>::max_digits10;

/// Appends what the cell displays in the classic locale with `digits` digits of a number, from 6 to 17.
void appendDisplayText(std::string& text, Cell const& cell, int digits = displayDigits);

} // namespace QX
