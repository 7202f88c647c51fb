#pragma once

#include "table/src/column.h"

#include <optional>
#include <vector>

namespace QX {

/// The given rows of `column` grouped by value, the values in ascending or descending order; within one
/// value in the order given.
///
/// Empty cells are one value before all others. Two other cells are one value when neither is less than
/// the other; a row is listed once for every value that its cell equals by Cell::compare, which differs
/// from once where equality and order disagree.
Rows ordered(Column const& column, Rows const& rows, bool ascending);

/// The same by several columns, the most significant first.
Rows ordered(std::vector<Column> const& keys, Rows rows, bool ascending);

/// The plain way to ordered(): the values are put in order one by one, then each is compared with every
/// row.
Rows orderedByComparing(Column const& column, Rows const& rows, bool ascending);

/// The fast way to ordered() by several columns, the most significant first: what ordered() gives by the
/// last one, then by the one before it, and so on. Nothing when the order or equality of a column is not
/// an honest one: tables, errors, NaN, numbers next to each other, dates beside numbers.
std::optional<Rows> orderedBySorting(std::vector<Column> const& keys, Rows const& rows, bool ascending);

} // namespace QX
