#pragma once

#include "qx/table.h"
#include "table/model/column.h"
#include "table/model/columnview.h"

#include <vector>

namespace QX {

/// The listed rows of a column, behind its name.
Column gathered(ColumnView const& column, Rows const& rows);

/// A new table of the names row and the given rows of columns of one length, in their order.
Ptr<Table> pickRows(Str const& name, std::vector<ColumnView> const& columns, Rows const& rows);

} // namespace QX
