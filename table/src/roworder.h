#pragma once

#include "table/src/column.h"

#include <optional>

namespace QX {

/// The given rows of `column` grouped by value, the values in ascending or descending order; within one
/// value in the order given.
///
/// Empty cells are one value before all others. Two other cells are one value when neither is less than
/// the other; a row is listed once for every value that its cell equals by Cell::compare, which differs
/// from once where equality and order disagree.
Rows ordered(Column const& column, Rows const& rows, bool ascending);

/// The plain way to ordered(): the values are put in order one by one, then each is compared with every
/// row.
Rows orderedByComparing(Column const& column, Rows const& rows, bool ascending);

/// The fast way to ordered(), a stable sort of the rows; nothing when the column's order or equality is
/// not an honest one: tables, errors, NaN, numbers next to each other, dates beside numbers.
std::optional<Rows> orderedBySorting(Column const& column, Rows const& rows, bool ascending);

} // namespace QX
