#pragma once

#include "qx/cell.h"
#include "qx/export.h"

#include <string_view>

namespace QX {

/// True when two cells hold the same value; an equivalence, unlike Cell::compare(), so that values can
/// be grouped, joined and counted by it.
///
/// Cells that are empty (Cell::empty(): nothing, a text without characters, a number that is not valid)
/// all hold one value. Other cells hold the same value when they are of one kind and
///
/// - texts have the same bytes;
/// - numbers are equal as doubles, so -0 is 0; every NaN is the same value, too;
/// - tables are the same Table object, whatever they contain;
/// - errors always.
///
/// So 0.1 + 0.2 and 0.3 are two values, and the text "1970-01-02" is another than the number 1.
///
/// Cost: at most linear in the length of a text; allocates nothing.
QX_API bool sameValue(Cell const& left, Cell const& right) noexcept;

/// Orders two cells by value: negative when `left` comes first, positive when `right` does, 0 when they
/// are tied. A strict weak order, unlike Cell::operator<, fit for std::sort and std::map.
///
/// Cells that are empty come first, then numbers ascending, NaN behind them, then texts by unsigned
/// byte, then tables, then errors. Cells of the same value are tied, and so are any two tables.
///
/// Cost: at most linear in the length of a text; allocates nothing.
QX_API int orderValues(Cell const& left, Cell const& right) noexcept;

/// The number of a numeric cell, valid or not; 0 for every other cell. Allocates nothing.
QX_API double numberIn(Cell const& cell) noexcept;

/// The text of a string cell in place, without a copy; without bytes for every other cell.
///
/// Valid as long as the cell stays where it is and is not assigned to: a cell in a table stays until the
/// table grows or goes. Allocates nothing.
QX_API std::string_view textIn(Cell const& cell) noexcept;
std::string_view textIn(Cell const&& cell) = delete;

} // namespace QX
