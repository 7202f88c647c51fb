#pragma once

#include "qx/cell.h"

#include <cstdint>
#include <string_view>

namespace QX {

/// A look at what a cell holds without copying it: the fields that belong to its kind, the others as
/// made. Valid as long as the cell's body.
struct CellValue {
    Cell::CellType kind = Cell::EmptyCell;
    std::string_view text;        ///< of a string cell
    AnalyticDouble number;        ///< of a numeric cell
    Table const* table = nullptr; ///< of a table cell
};

/// Looks at `cell`.
CellValue valueOf(Cell const& cell);

/// The most handles that share the body of a table cell or its table.
std::uint32_t ownersOf(Cell const& cell);

/// True for a string cell whose text is a date, by which it may equal a number.
bool isDate(Cell const& cell);

} // namespace QX
