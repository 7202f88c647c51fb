#pragma once

#include "table/model/columnview.h"

#include <vector>

namespace QX {

/// The given rows grouped by their values in key columns, the most significant first, the values in
/// ascending or descending order; rows of one value in the order given.
///
/// Empty cells are one value before all others. Two other cells are one value when neither is less than
/// the other; a row is listed once for every value that its cell equals by Cell::compare, which differs
/// from once where equality and order disagree. Every further key works on the rows as the less
/// significant ones left them.
Rows ordered(std::vector<ColumnView> const& keys, Rows rows, bool ascending);

/// The plain way to ordered() by one column: the values are put in order one by one, then each is
/// compared with every row.
Rows orderedByComparing(ColumnView const& column, Rows const& rows, bool ascending);

} // namespace QX
