#include "table/src/roworder.h"

#include "base/fastpaths.h"
#include "table/src/rowmatch.h"

#include <algorithm>
#include <utility>

namespace QX {

namespace {

using CellOrder = std::vector<Cell const*>;

/// Puts a value in its place among ordered ones unless it is there already. The order need not be an
/// honest one: the search stays within bounds whatever it answers.
void insertValue(CellOrder& values, Cell const& value) {
    std::size_t low = 0;
    std::size_t high = values.size();
    while (low < high) {
        std::size_t const middle = low + (high - low) / 2;
        if (value < *values[middle]) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    if (low == 0 || *values[low - 1] < value) {
        values.insert(values.begin() + static_cast<std::ptrdiff_t>(low), &value);
    }
}

/// The rows whose cells are empty and the others, both as given, and the distinct values in their order.
struct Values {
    Rows empty;
    Rows filled;
    CellOrder values;

    Values(Column const& column, Rows const& rows) {
        for (std::size_t const row : rows) {
            if (column[row].empty()) {
                empty.push_back(row);
            } else {
                filled.push_back(row);
                insertValue(values, column[row]);
            }
        }
    }
};

/// Lists for each value the rows that equal it, as `match` finds them, and the empty ones at their end.
template <typename Match>
Rows grouped(Column const& column, Rows const& rows, bool ascending, Match const& match) {
    Values parts(column, rows);
    if (!ascending) {
        std::reverse(parts.values.begin(), parts.values.end());
    }
    Cell const title;
    std::vector<Cell> values{title}; // item 0, which takes no part
    for (Cell const* value : parts.values) {
        values.push_back(*value);
    }
    std::vector<Cell> cells{title};
    for (std::size_t const row : parts.filled) {
        cells.push_back(column[row]);
    }
    Rows listed = match(Column(cells, cells.size(), title), Column(values, values.size(), title));
    for (std::size_t& place : listed) {
        place = parts.filled[place - 1];
    }
    listed.insert(ascending ? listed.begin() : listed.end(), parts.empty.begin(), parts.empty.end());
    return listed;
}

} // namespace

Rows ordered(Column const& column, Rows const& rows, bool ascending) {
    if (fastPaths) {
        if (std::optional<Rows> sorted = orderedBySorting({column}, rows, ascending)) {
            return std::move(*sorted);
        }
    }
    return grouped(column, rows, ascending, rowsOfValues);
}

Rows ordered(std::vector<Column> const& keys, Rows rows, bool ascending) {
    if (fastPaths) {
        if (std::optional<Rows> sorted = orderedBySorting(keys, rows, ascending)) {
            return std::move(*sorted);
        }
    }
    for (std::size_t k = keys.size(); k-- > 0;) {
        rows = ordered(keys[k], rows, ascending);
    }
    return rows;
}

Rows orderedByComparing(Column const& column, Rows const& rows, bool ascending) {
    return grouped(column, rows, ascending, rowsByComparing);
}

} // namespace QX
