#pragma once

#include "qx/cell.h"

#include <string>

namespace QX {

/// Appends what the cell displays in the classic locale with 17 digits, by which all doubles differ.
void appendDisplayText(std::string& text, Cell const& cell);

} // namespace QX
