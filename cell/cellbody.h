#pragma once

#include "cell/cellempty.h"
#include "cell/cellnumeric.h"
#include "cell/cellstring.h"
#include "cell/cellvalue.h"

namespace QX {

/// Calls `call` with the body of `cell`. For a number or a text it is of its own class, so that what is
/// asked of them takes no virtual call.
template <typename Call>
decltype(auto) onBody(Cell const& cell, Call const& call) {
    if (cell.isA() == Cell::NumericCell) {
        return call(CellNumeric(numberOf(cell)));
    }
    if (cell.isA() == Cell::StringCell) {
        return call(CellString(textOf(cell)));
    }
    if (cell.isA() == Cell::EmptyCell) {
        return call(CellEmpty::shared());
    }
    return call(*CellImplementation::contentOf(cell).body());
}

} // namespace QX
