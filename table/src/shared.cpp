// What the operations share: their operands, the rectangular copy and the placing of rows.

#include "base/fastpaths.h"
#include "base/immortal.h"
#include "cell/cellvalue.h"
#include "table/src/raise.h"
#include "table/src/tableimpl.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace QX {

namespace {

/// Where each row of a table goes when most of them are listed, none twice, and in another order; empty
/// otherwise. A row that goes nowhere, such as the names row, has place 0.
Rows placesOf(Rows const& rows, std::size_t height) {
    Rows places;
    if (!fastPaths || rows.size() < height / 2 || std::is_sorted(rows.begin(), rows.end())) {
        return places;
    }
    places.resize(height);
    for (std::size_t place = 0; place < rows.size(); ++place) {
        if (places[rows[place]] != 0) {
            return Rows();
        }
        places[rows[place]] = place + 1;
    }
    return places;
}

/// The listed rows of a column, behind its name.
Cells gathered(Column const& column, Rows const& rows) {
    Cells cells;
    cells.reserve(rows.size() + 1);
    cells.push_back(column[0]);
    for (std::size_t const row : rows) {
        cells.push_back(column[row]);
    }
    return cells;
}

/// The same with every row put in its place. Reads cells in the order in which they lie in memory, which
/// takes up to a third less time than gathering, most where many rows share a key or texts are long.
Cells scattered(Column const& column, Rows const& places, std::size_t count) {
    Cells cells;
    cells.reserve(count + 1);
    cells.push_back(column[0]);
    Cell* const first = cells.addUnmade(count) - 1;
    for (std::size_t row = 1; row < column.items(); ++row) {
        if (places[row] != 0) {
            new (first + places[row]) Cell(column[row]);
        }
    }
    return cells;
}

} // namespace

TableImplementation const& TableImplementation::of(Table const& table) {
    return table.body();
}

TableImplementation const& TableImplementation::none() {
    static Immortal<TableImplementation> const empty{Str()};
    return empty.object;
}

bool TableImplementation::isShared(Cell const& cell) {
    return ownersOf(cell) > 1 || nestedIn(cell)->data_.useCount() > 1;
}

TableImplementation const& TableImplementation::required(Ptr<Table const> const& operand,
                                                         char const* complaint) {
    if (!operand) {
        raise(complaint);
    }
    return of(*operand);
}

void TableImplementation::requireOther(Ptr<Table> const& result) const {
    if (result && result->data_.get() == this) {
        raise("Result table cannot be same as 'this' table");
    }
}

void TableImplementation::copyRectangle(TableImplementation& target) const {
    std::size_t const width = items();
    if (width == 0) {
        return;
    }
    target.indices_.reserve(indices());
    for (Index const& index : indices_) {
        target.indices_.push_back(padded(Column(index, width, sharedEmptyCell())));
    }
}

TableImplementation::Index TableImplementation::padded(Column const& column) {
    Index copy;
    copy.reserve(column.items());
    for (std::size_t j = 0; j < column.items(); ++j) {
        copy.push_back(column[j]);
    }
    return copy;
}

std::vector<Column> TableImplementation::columns() const {
    std::size_t const height = items();
    std::vector<Column> columns;
    for (std::size_t i = 0; i < indices(); ++i) {
        columns.push_back(column(i, height));
    }
    return columns;
}

Ptr<Table> TableImplementation::pickRows(Str const& name, std::vector<Column> const& columns,
                                         Rows const& rows) {
    Ptr<Table> const table = makePtr<Table>(name);
    Indices& picked = made(table).indices_;
    picked.reserve(columns.size());
    Rows const places = placesOf(rows, columns.empty() ? 0 : columns.front().items());
    for (Column const& column : columns) {
        picked.push_back(places.empty() ? gathered(column, rows)
                                        : scattered(column, places, rows.size()));
    }
    return table;
}

void TableImplementation::keepRows(Rows const& rows) {
    std::size_t const height = items();
    for (Index& index : indices_) {
        index.resize(height);
        for (std::size_t k = 0; k < rows.size(); ++k) {
            index[k + 1] = std::move(index[rows[k]]);
        }
        index.resize(rows.size() + 1);
    }
}

} // namespace QX
