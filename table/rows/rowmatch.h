#pragma once

#include "table/model/columnview.h"

namespace QX {

/// The rows of `column` that equal a value, grouped by value in the order of the values; within one
/// value in row order. A row that equals several values is listed for each.
///
/// Row 0 and value 0 are names and take no part. A row equals a value by `row.compare(value, false)`.
Rows rowsOfValues(ColumnView const& column, ColumnView const& values);

/// The plain way to rowsOfValues: every row is compared with every value.
Rows rowsByComparing(ColumnView const& column, ColumnView const& values);

/// The fast way to rowsOfValues, and for any values: each row looks up the values it may equal by their
/// keys.
Rows rowsByKeys(ColumnView const& column, ColumnView const& values);

} // namespace QX
