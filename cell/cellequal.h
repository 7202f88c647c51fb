#pragma once

#include "base/strview.h"
#include "cell/cellstring.h"
#include "cell/cellvalue.h"
#include "cell/numbertext.h"

namespace QX {

/// Cell::compare() for the many cells of a walk: decides by what the cells hold where that is enough.
inline bool equalCells(Cell const& left, Cell const& right, bool flag) {
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
            if (own.body() == other.body()) {
                return true;
            }
            if (!flag) {
                return viewOf(static_cast<CellString const&>(*own.body()).text()) ==
                       viewOf(static_cast<CellString const&>(*other.body()).text());
            }
            break;
        case Cell::TableCell:
            return nestedIn(left) == nestedIn(right);
        }
    }
    return left.compare(right, flag);
}

} // namespace QX
