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

CellValue valueOf(Cell const& cell) {
    CellValue value;
    value.kind = cell.isA();
    switch (value.kind) {
    case Cell::EmptyCell:
    case Cell::ErrorCell:
        break;
    case Cell::StringCell:
        value.text = textOf(cell);
        break;
    case Cell::NumericCell:
        value.number = numberOf(cell);
        break;
    case Cell::TableCell:
        value.table = handleOf(cell).get();
        break;
    }
    return value;
}

std::uint32_t ownersOf(Cell const& cell) {
    return std::max(CellImplementation::contentOf(cell).owners(), bodyOf<CellTable>(cell).owners());
}

bool isDate(Cell const& cell) {
    return cell.isA() == Cell::StringCell && CellString(textOf(cell)).date().isValid();
}

} // namespace QX
