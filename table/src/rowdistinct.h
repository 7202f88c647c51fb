#pragma once

#include "table/src/column.h"

#include <vector>

namespace QX {

/// The rows from 1 on that equal no earlier row that was kept, the names row included.
///
/// `columns` are of one length. Rows are equal when, in every column, the earlier cell equals the later
/// by Cell::compare() with flag false.
Rows distinctRows(std::vector<Column> const& columns);

/// The plain way to distinctRows: each row is compared with every row kept.
Rows distinctByComparing(std::vector<Column> const& columns);

} // namespace QX
