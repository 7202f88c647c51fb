#pragma once

#include "qx/cell.h"

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

/// True when two numeric cells of these values are equal: equal doubles, doubles of one sign that are
/// next to each other, or NaNs of one bit pattern.
bool equalNumbers(double a, double b);

/// True when the text of a string cell is a date, by which it may equal a number.
bool isDate(std::string_view text);

} // namespace QX
