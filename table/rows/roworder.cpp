#include "table/rows/roworder.h"

#include "memory/fastpaths.h"
#include "table/rows/cellorder.h"
#include "table/rows/oddnumbers.h"
#include "table/rows/rowmatch.h"
#include "table/rows/sortkeys.h"

#include <algorithm>
#include <utility>

namespace QX {

namespace {

/// Lists for each value the rows that equal it, as `match` finds them, and the empty ones at their end.
///
/// `Values` puts the values in order, of which Cell::operator< tells only what comes before what.
template <typename Values, typename Match>
Rows grouped(ColumnView const& column, Rows const& rows, bool ascending, Match const& match) {
    Rows empty;
    Rows filled;
    Values order;
    Cell const title; // item 0, which takes no part
    std::vector<Cell> cells{title};
    for (std::size_t const row : rows) {
        Cell const& cell = column[row];
        (cell.empty() ? empty : filled).push_back(row);
        if (!cell.empty()) {
            insertValue(order, cell);
            cells.push_back(cell);
        }
    }
    std::vector<Cell> values{title};
    for (std::size_t k = 0; k < order.size(); ++k) {
        values.push_back(*order.at(ascending ? k : order.size() - 1 - k));
    }
    Rows listed =
        match(ColumnView(cells, cells.size(), title), ColumnView(values, values.size(), title));
    for (std::size_t& place : listed) {
        place = filled[place - 1];
    }
    listed.insert(ascending ? listed.begin() : listed.end(), empty.begin(), empty.end());
    return listed;
}

Rows orderedByOne(ColumnView const& column, ColumnProfile const& profile, Rows const& rows,
                  bool ascending) {
    if (profile.tables || profile.datesBesideNumbers) {
        return grouped<ChunkedValues>(column, rows, ascending, rowsOfValues);
    }
    if (!profile.totallyOrdered()) {
        return orderedOddNumbers(column, profile, rows, ascending);
    }
    SortKeys sorting(rows, ascending);
    sorting.sortBy(column, profile);
    return sorting.rows();
}

} // namespace

Rows ordered(std::vector<ColumnView> const& keys, Rows rows, bool ascending) {
    std::vector<ColumnProfile> profiles;
    profiles.reserve(keys.size());
    for (ColumnView const& key : keys) {
        profiles.emplace_back(key, rows);
    }
    bool const allOrdered = std::all_of(profiles.begin(), profiles.end(),
                                        [](ColumnProfile const& each) { return each.totallyOrdered(); });
    if (fastPaths && allOrdered) {
        SortKeys sorting(rows, ascending);
        for (std::size_t k = 0; k < keys.size(); ++k) {
            sorting.sortBy(keys[k], profiles[k]);
        }
        return sorting.rows();
    }
    for (std::size_t k = keys.size(); k-- > 0;) {
        rows = fastPaths ? orderedByOne(keys[k], profiles[k], rows, ascending)
                         : orderedByComparing(keys[k], rows, ascending);
    }
    return rows;
}

Rows orderedByComparing(ColumnView const& column, Rows const& rows, bool ascending) {
    return grouped<PlainValues>(column, rows, ascending, rowsByComparing);
}

} // namespace QX
