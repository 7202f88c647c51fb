#pragma once

#include "cell/cellvalue.h"
#include "cell/numbertext.h"

namespace QX {

/// Cell::compare() as the bodies of the two cells define it.
bool equalBodies(Cell const& left, Cell const& right, bool flag);

/// The same, decided by what the cells hold where that is enough.
inline bool equalCells(Cell const& left, Cell const& right, bool flag) {
    if (holdSame(left, right)) {
        return true;
    }
    Detail::CellContent const& own = CellImplementation::contentOf(left);
    Detail::CellContent const& other = CellImplementation::contentOf(right);
    if (own.kind() == other.kind()) {
        switch (left.isA()) {
        case Cell::EmptyCell:
        case Cell::ErrorCell:
            return true;
        case Cell::NumericCell:
            return own.number() == other.number() || equalNumbers(own.number(), other.number());
        case Cell::StringCell:
            if (!flag) {
                return !own.isShort() && !other.isShort() && textOf(left) == textOf(right);
            }
            break;
        case Cell::TableCell:
            return nestedIn(left) == nestedIn(right);
        }
    }
    return equalBodies(left, right, flag);
}

} // namespace QX
