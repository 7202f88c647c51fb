#pragma once

#include "table/src/column.h"
#include "table/src/tableimpl.h"

namespace QX {

/// The rows from 1 on that equal no earlier row that was kept, the names row included.
///
/// Rows are equal when, in every index, the earlier cell equals the later by Cell::compare() with flag
/// false.
Rows distinctRows(TableImplementation const& table);

/// The plain way to distinctRows: each row is compared with every row kept.
Rows distinctByComparing(TableImplementation const& table);

} // namespace QX
