#include "table/src/rowdistinct.h"

#include "base/fastpaths.h"
#include "base/hash.h"
#include "cell/cellequal.h"
#include "cell/cellvalue.h"
#include "cell/numbergrid.h"
#include "cell/texthash.h"
#include "table/src/keyedplaces.h"
#include "table/src/rowset.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace QX {

namespace {

using Hash = std::uint64_t;

/// Hashes the cells of one column so that cells which may equal each other get the same hash.
class ColumnHashes {
public:
    explicit ColumnHashes(Column const& column) : column_(column), hashes_(column.items()) {
        for (std::size_t j = 0; j < column.items(); ++j) {
            Cell const& cell = column[j];
            if (cell.isA() == Cell::StringCell && !textOf(cell).empty()) {
                hashes_[j] = textHash(cell);
            } else if (cell.isA() == Cell::TableCell) {
                hashes_[j] = reinterpret_cast<std::uintptr_t>(nestedIn(cell));
            } else if (cell.isA() == Cell::NumericCell) {
                AnalyticDouble const number = numberOf(cell);
                numbers_.push_back({gridWord(number.get()), j});
                valid_ = valid_ && number.isValid();
                apart_ = apart_ && number.isValid() && standsApart(number.get());
            } // empty cells, texts without characters and errors, which equal one another, keep hash 0
        }
        usable_ = numbers_.empty() || !hasDates(); // a date equals every number of its day
        hashNumbers();
    }

    /// Mixes the hashes into those of the rows, unless they would tell apart what may be equal.
    void mixInto(BlockVector<Hash>& rows) const {
        for (std::size_t j = 0; j < rows.size() && usable_; ++j) {
            rows[j] = spread(rows[j] ^ hashes_[j]);
        }
    }

private:
    /// Gives numbers that are linked by steps of one in the grid the same hash.
    void hashNumbers() {
        if (apart_) {
            for (KeyedPlace const& number : numbers_) {
                hashes_[number.place] = spread(number.word);
            }
            return;
        }
        sortPlaces(numbers_.data(), numbers_.size());
        for (std::size_t first = 0; first < numbers_.size();) {
            std::size_t end = first + 1;
            bool valid = isValid(first);
            while (end < numbers_.size() && numbers_[end].word - numbers_[end - 1].word <= 1) {
                valid = valid && isValid(end);
                ++end;
            }
            for (std::size_t k = first; k < end; ++k) {
                // An empty cell equals a number that is not valid.
                hashes_[numbers_[k].place] = valid ? spread(numbers_[first].word) : 0;
            }
            first = end;
        }
    }

    bool hasDates() const {
        for (std::size_t j = 0; j < column_.items(); ++j) {
            if (isDate(column_[j])) {
                return true;
            }
        }
        return false;
    }
    bool isValid(std::size_t k) const { return valid_ || !column_[numbers_[k].place].empty(); }

    Column column_;
    BlockVector<Hash> hashes_;
    KeyedPlaces numbers_; // with their places in the grid
    bool apart_ = true;   // no two different numbers are next to each other
    bool valid_ = true;   // all of them are
    bool usable_ = true;
};

bool equalRows(std::vector<Column> const& columns, std::size_t earlier, std::size_t later) {
    return std::all_of(columns.begin(), columns.end(), [&](Column const& column) {
        return equalCells(column[earlier], column[later], false);
    });
}

/// Compares each row with the kept rows of its hash, which is one and the same for rows that are equal.
Rows distinctWithin(std::vector<Column> const& columns, BlockVector<Hash> const& hashes) {
    RowSet kept(hashes.size());
    Rows rows;
    for (std::size_t j = 0; j < hashes.size(); ++j) {
        bool const added = kept.insert(
            j, hashes[j], [&](std::size_t earlier) { return equalRows(columns, earlier, j); });
        if (added && j > 0) {
            rows.push_back(j);
        }
    }
    return rows;
}

std::size_t height(std::vector<Column> const& columns) {
    return columns.empty() ? 0 : columns.front().items();
}

} // namespace

Rows distinctRows(std::vector<Column> const& columns) {
    if (!fastPaths) {
        return distinctByComparing(columns);
    }
    BlockVector<Hash> hashes(height(columns));
    for (Column const& column : columns) {
        ColumnHashes(column).mixInto(hashes);
    }
    return distinctWithin(columns, hashes);
}

Rows distinctByComparing(std::vector<Column> const& columns) {
    return distinctWithin(columns, BlockVector<Hash>(height(columns)));
}

} // namespace QX
