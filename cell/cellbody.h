#pragma once

#include "cell/cellempty.h"
#include "cell/cellnumeric.h"
#include "cell/cellstring.h"
#include "cell/celltable.h"
#include "cell/cellvalue.h"

namespace QX {

/// Calls `call` with the body of `cell`, for most kinds by its own class, so that what is asked of it
/// takes no virtual call.
template <typename Call>
decltype(auto) onBody(Cell const& cell, Call const& call) {
    switch (cell.isA()) {
    case Cell::EmptyCell:
        return call(CellEmpty::shared());
    case Cell::StringCell:
        return call(CellString(textOf(cell)));
    case Cell::NumericCell:
        return call(CellNumeric(numberOf(cell)));
    case Cell::TableCell:
        return call(tableBody(cell));
    case Cell::ErrorCell:
        break;
    }
    return call(*CellImplementation::contentOf(cell).error());
}

} // namespace QX
