#include "table/walks/leafmatch.h"

#include "cell/equality.h"
#include "cell/plaintext.h"
#include "memory/fastpaths.h"

#include <algorithm>
#include <cstddef>

namespace QX {

namespace {

/// True when index i is found at its place: by a short, plain text for a name, which no index before it has.
bool isFoundByName(TableImplementation const& table, std::size_t i) {
    Cell const& name = table.columns()[i].front();
    Detail::CellContent const& content = CellImplementation::contentOf(name);
    if (name.isA() != Cell::StringCell || !content.isShort() || !isPlainText(textOf(name))) {
        return false;
    }
    for (std::size_t k = 0; k < i; ++k) {
        if (sameBits(table.get(k, 0), name)) {
            return false;
        }
    }
    return true;
}

/// True for a cell that is no table and, as a text, soon compared.
bool isSmall(Cell const& cell) {
    constexpr std::size_t longest = 100;
    return cell.isA() == Cell::StringCell ? textOf(cell).size() <= longest
                                          : cell.isA() != Cell::TableCell;
}

/// True when two indices hold equal, small cells.
bool equalValues(Column const& left, Column const& right, bool flag) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [flag](Cell const& one, Cell const& other) {
                          return isSmall(one) && equalCells(one, other, flag);
                      });
}

} // namespace

bool equalLeaves(TableImplementation const& left, TableImplementation const& right, bool flag) {
    // So few cells are looked at again sooner than it is found out that they have been before.
    constexpr std::size_t few = 8;
    if (!fastPaths || left.indices() != right.indices() || left.indices() > few) {
        return false;
    }
    for (std::size_t i = 0; i < left.indices(); ++i) {
        Column const& own = left.columns()[i];
        Column const& other = right.columns()[i];
        if (own.empty() || own.size() > few || !equalValues(own, other, flag) ||
            !sameBits(own.front(), other.front()) || !isFoundByName(right, i)) {
            return false;
        }
    }
    return true;
}

} // namespace QX
