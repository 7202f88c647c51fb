#pragma once

#include "qx/table.h"

/// The operations that read whole rows or indices, as Table documents them. Each reads its tables, writes
/// none of them, and hands over a new one in `result`; the caller keeps the tables alive meanwhile.
namespace QX::Operations {

Status append(TableImplementation const& table, TableImplementation const& operand, Ptr<Table>& result,
              bool addIndices, bool distinct);
Status fill(TableImplementation const& table, TableImplementation const& operand, Ptr<Table>& result,
            int count);
Status filter(TableImplementation const& table, TableImplementation const& operand, Ptr<Table>& result,
              bool keepEmpty, bool exclude);
Status merge(TableImplementation const& table, TableImplementation const& operand, Ptr<Table>& result,
             bool byName);
Status select(TableImplementation const& table, TableImplementation const& operand, Ptr<Table>& result,
              bool keepUnmatched, bool distinct, bool invert);
Status sort(TableImplementation const& table, TableImplementation const& operand, Ptr<Table>& result,
            bool ascending);
Status transpose(TableImplementation const& table, Ptr<Table>& result);

} // namespace QX::Operations
