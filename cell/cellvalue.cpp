#include "cell/cellvalue.h"

#include "base/makeptr.h"
#include "cell/cellstring.h"
#include "cell/celltable.h"

#include <algorithm>

namespace QX {

CellTable const& tableBody(Cell const& cell) {
    return static_cast<Counted<CellTable>*>(CellImplementation::contentOf(cell).block())->object;
}

Ptr<Table> const& handleOf(Cell const& cell) {
    return tableBody(cell).table();
}

std::uint32_t ownersOf(Cell const& cell) {
    return std::max(CellImplementation::contentOf(cell).owners(), tableBody(cell).owners());
}

bool isDate(Cell const& cell) {
    return cell.isA() == Cell::StringCell && CellString(textOf(cell)).date().isValid();
}

} // namespace QX
