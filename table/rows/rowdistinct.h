#pragma once

#include "table/model/columnview.h"

#include <vector>

namespace QX {

/// The rows from 1 on that equal no earlier row that was kept, the names row included.
///
/// `columns` are of one length. Rows are equal when, in every column, the earlier cell equals the later
/// by Cell::compare() with flag false.
Rows distinctRows(std::vector<ColumnView> const& columns);

/// The plain way to distinctRows: each row is compared with every row kept.
Rows distinctByComparing(std::vector<ColumnView> const& columns);

} // namespace QX
