#pragma once

#include "qx/cell.h"
#include "qx/export.h"

#include <string_view>

namespace QX {

/// Makes a string cell that holds exactly these bytes, whatever they read as.
///
/// Cell(Str const&) makes a number of "00501" and an empty cell of "[Empty]"; this leaves both as they
/// are, which is what text that comes from outside and has to go back there needs. The cell is a string
/// cell in every way: it equals and orders by its text, and gives no number.
///
/// What doesn't go with it: the printed form of such a cell reads back as something else, and an index
/// named by one is not found by Table::at(Str const&, std::size_t), which looks for the cell that
/// Cell(Str const&) makes of the name.
///
/// Allocates nothing for up to 15 bytes, and once for more. Raises std::bad_alloc where there is no memory.
QX_API Cell textCell(std::string_view text);

} // namespace QX
