#include "cell/cellvalue.h"

#include "cell/cellstring.h"
#include "cell/celltable.h"

#include <algorithm>

namespace QX {

namespace {

template <typename Body>
Body const& bodyOf(Cell const& cell) {
    return static_cast<Body const&>(*CellImplementation::contentOf(cell).body());
}

} // namespace

Ptr<Table> const& handleOf(Cell const& cell) {
    return bodyOf<CellTable>(cell).table();
}

std::uint32_t ownersOf(Cell const& cell) {
    return std::max(CellImplementation::contentOf(cell).owners(), bodyOf<CellTable>(cell).owners());
}

bool isDate(Cell const& cell) {
    return cell.isA() == Cell::StringCell && CellString(textOf(cell)).date().isValid();
}

} // namespace QX
