#include "table/src/rowdistinct.h"

#include "base/fastpaths.h"
#include "base/hash.h"
#include "cell/cellequal.h"
#include "cell/cellvalue.h"
#include "cell/numbergrid.h"
#include "cell/texthash.h"
#include "table/src/keyedplaces.h"
#include "table/src/neighbours.h"
#include "table/src/rowrepeats.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace QX {

namespace {

bool hasDates(Column const& column) {
    for (std::size_t j = 0; j < column.items(); ++j) {
        if (column[j].isA() == Cell::StringCell && isDate(column[j])) {
            return true;
        }
    }
    return false;
}

/// True when two different numbers are next to each other, and so equal.
bool hasNeighbours(Column const& column) {
    BlockVector<std::uint64_t> words;
    for (std::size_t j = 0; j < column.items(); ++j) {
        if (column[j].isA() == Cell::NumericCell) {
            words.push_back(gridWord(numberOf(column[j]).get()));
        }
    }
    return haveNeighbours(words);
}

/// Hashes the cells of one column so that cells which may equal each other get the same hash.
class ColumnHashes {
public:
    explicit ColumnHashes(Column const& column) : column_(column) {
        bool texts = false;
        bool numbers = false;
        bool valid = true;
        bool apart = true; // no two different numbers are next to each other
        for (std::size_t j = 0; j < column.items(); ++j) {
            Cell const& cell = column[j];
            texts = texts || cell.isA() == Cell::StringCell;
            if (cell.isA() == Cell::NumericCell) {
                numbers = true;
                valid = valid && numberOf(cell).isValid();
                apart = apart && standsApart(numberOf(cell).get());
            }
        }
        usable_ = !texts || !numbers || !hasDates(column); // a date equals every number of its day
        if (usable_ && (!valid || (!apart && hasNeighbours(column)))) {
            linkNumbers();
        }
    }

    /// Mixes the hashes into those of the rows, unless they would tell apart what may be equal.
    void mixInto(RowHashes& rows) const {
        for (std::size_t j = 0; j < rows.size() && usable_; ++j) {
            rows[j] = spread(rows[j] ^ hash(j));
        }
    }

private:
    std::uint64_t hash(std::size_t j) const {
        Cell const& cell = column_[j];
        switch (cell.isA()) {
        case Cell::StringCell:
            return textOf(cell).empty() ? 0 : textHash(cell);
        case Cell::NumericCell:
            return linked_.empty() ? spread(gridWord(numberOf(cell).get())) : linked_[j];
        case Cell::TableCell:
            return reinterpret_cast<std::uintptr_t>(nestedIn(cell));
        default:
            return 0; // empty cells and errors, which equal one another and texts without characters
        }
    }

    /// Gives numbers that are linked by steps of one in the grid the same hash.
    void linkNumbers() {
        KeyedPlaces numbers; // with their places in the grid
        for (std::size_t j = 0; j < column_.items(); ++j) {
            if (column_[j].isA() == Cell::NumericCell) {
                numbers.push_back({gridWord(numberOf(column_[j]).get()), j});
            }
        }
        sortPlaces(numbers.data(), numbers.size());
        linked_.resize(column_.items());
        for (auto first = numbers.begin(); first != numbers.end();) {
            bool valid = true;
            auto end = first;
            do {
                valid = valid && !column_[end->place].empty();
                ++end;
            } while (end != numbers.end() && end->word - (end - 1)->word <= 1);
            // An empty cell equals a number that is not valid.
            std::uint64_t const hash = valid ? spread(first->word) : 0;
            std::for_each(first, end, [&](KeyedPlace const& each) { linked_[each.place] = hash; });
            first = end;
        }
    }

    Column column_;
    bool usable_;
    RowHashes linked_; // of the numbers, where those of different ones may be the same
};

/// Of rows of one hash only the equal ones are one row.
Rows distinctWithin(std::vector<Column> const& columns, RowHashes const& hashes) {
    auto const same = [](Cell const& earlier, Cell const& later) {
        return equalCells(earlier, later, false);
    };
    return firstRows(hashes, columns, same, [](std::size_t, std::size_t) { return false; });
}

std::size_t height(std::vector<Column> const& columns) {
    return columns.empty() ? 0 : columns.front().items();
}

} // namespace

Rows distinctRows(std::vector<Column> const& columns) {
    if (!fastPaths) {
        return distinctByComparing(columns);
    }
    RowHashes hashes(height(columns));
    for (Column const& column : columns) {
        ColumnHashes(column).mixInto(hashes);
    }
    return distinctWithin(columns, hashes);
}

Rows distinctByComparing(std::vector<Column> const& columns) {
    return distinctWithin(columns, RowHashes(height(columns)));
}

} // namespace QX
