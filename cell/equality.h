#pragma once

#include "cell/view.h"

namespace QX {

/// Cell::compare(), by the matrix of all kinds.
bool equalByKind(Cell const& left, Cell const& right, bool ignoreCase);

/// The same for many cells: what two cells hold most often decides without a call.
inline bool equalCells(Cell const& left, Cell const& right, bool ignoreCase) {
    if (sameBits(left, right)) {
        return true;
    }
    Detail::CellContent const& own = CellImplementation::contentOf(left);
    Detail::CellContent const& other = CellImplementation::contentOf(right);
    if (own.isNumber() && other.isNumber()) {
        return Detail::equalNumbers(own.number(), other.number());
    }
    if (own.isText() && other.isText() && !ignoreCase) {
        return !own.isShort() && !other.isShort() && own.text() == other.text();
    }
    return equalByKind(left, right, ignoreCase);
}

} // namespace QX
