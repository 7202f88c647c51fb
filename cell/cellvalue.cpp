#include "cell/cellvalue.h"

#include "base/strview.h"
#include "cell/cellnumeric.h"
#include "cell/cellstring.h"
#include "cell/celltable.h"

#include <algorithm>

namespace QX {

CellValue valueOf(Cell const& cell) {
    CellValue value;
    CellImplementation const& body = CellImplementation::of(cell);
    value.kind = body.isA();
    switch (value.kind) {
    case Cell::EmptyCell:
    case Cell::ErrorCell:
        break;
    case Cell::StringCell:
        value.text = viewOf(static_cast<CellString const&>(body).text());
        break;
    case Cell::NumericCell:
        value.number = static_cast<CellNumeric const&>(body).value();
        break;
    case Cell::TableCell:
        value.table = static_cast<CellTable const&>(body).table();
        break;
    }
    return value;
}

std::uint32_t ownersOf(Cell const& cell) {
    CellImplementation const& body = CellImplementation::of(cell);
    return std::max(CellImplementation::owners(cell), static_cast<CellTable const&>(body).owners());
}

bool isDate(Cell const& cell) {
    CellImplementation const& body = CellImplementation::of(cell);
    return body.isA() == Cell::StringCell && static_cast<CellString const&>(body).date().isValid();
}

} // namespace QX
