#pragma once

#include "cell/view.h"

#include <cstdint>
#include <iosfwd>

namespace QX {

/// What cells need to know of the tables that they hold.
class NestedTable {
public:
    /// The content of a cell that shares `table`; a null handle gives a new table named "Null Table".
    static Detail::CellContent sharing(Ptr<Table> const& table);
    /// That of a cell with a deep copy of `table`; a null handle or one without a data body gives a "Null
    /// Table", too.
    static Detail::CellContent copying(Ptr<Table const> const& table);
    /// Writes the table of a table cell as it displays itself.
    static void display(Ptr<Table> const& table, std::ostream& os);
    /// True when `left` has fewer items or fewer indices.
    static bool isSmaller(Table const& left, Table const& right);
};

/// The most handles that share what a table cell holds or its table.
std::uint32_t ownersOf(Cell const& cell);

} // namespace QX
