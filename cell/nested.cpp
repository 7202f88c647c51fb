#include "cell/nested.h"

#include "qx/table.h"

#include <algorithm>

namespace QX {

Detail::CellContent NestedTable::sharing(Ptr<Table> const& table) {
    auto* const counted = makeCounted<Ptr<Table>>(table ? table : makePtr<Table>(Str("Null Table")));
    return Detail::CellContent(counted->object.get(), counted);
}

Detail::CellContent NestedTable::copying(Ptr<Table const> const& table) {
    return sharing(table && table->data_ ? table->clone() : Ptr<Table>());
}

void NestedTable::display(Ptr<Table> const& table, std::ostream& os) {
    Ptr<Table> const kept(table); // an override may drop the cell that holds it
    kept->display(os, -1);
}

bool NestedTable::isSmaller(Table const& left, Table const& right) {
    return left.items(0) < right.items(0) || left.indices() < right.indices();
}

std::uint32_t ownersOf(Cell const& cell) {
    return std::max(CellImplementation::contentOf(cell).owners(), handleOf(cell).useCount());
}

} // namespace QX
