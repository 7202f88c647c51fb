// The order of rows, and indices made of rows of others.

#include "qx/rows.h"
#include "qx/values.h"
#include "table/model/bodies.h"
#include "table/rows/sortkeys.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <utility>

namespace QX {

namespace {

/// Orders rows by columns in one direction: by sort keys where the values have some, else cell by cell.
Rows orderedBy(std::vector<ColumnView> const& columns, Rows rows, bool ascending) {
    std::vector<ColumnProfile> profiles;
    profiles.reserve(columns.size());
    for (ColumnView const& column : columns) {
        profiles.emplace_back(column, rows);
    }
    if (std::none_of(profiles.begin(), profiles.end(), [](ColumnProfile const& each) {
            return each.nans || each.tables || each.errors;
        })) {
        SortKeys sorting(rows, ascending);
        for (std::size_t k = 0; k < columns.size(); ++k) {
            sorting.sortBy(columns[k], profiles[k]);
        }
        return sorting.rows();
    }
    std::stable_sort(rows.begin(), rows.end(), [&](std::size_t left, std::size_t right) {
        for (ColumnView const& column : columns) {
            if (int const order = orderValues(column[left], column[right]); order != 0) {
                return (order < 0) == ascending;
            }
        }
        return false;
    });
    return rows;
}

/// The body of a table to write to, made where there is none.
TableImplementation& madeBodyOf(Table& table) {
    Ptr<TableImplementation>& body = TableBodies::data(table);
    if (!body) {
        body = makeBody(Str());
    }
    return *body;
}

} // namespace

IndexCells cellsOf(Table const& table, std::size_t index) noexcept {
    IndexCells found;
    found.beyond = &TableImplementation::sharedEmptyCell();
    TableImplementation const& body = bodyOf(table);
    if (index < body.indices()) {
        found.cells = body.columns()[index].begin();
        found.count = body.columns()[index].size();
    }
    return found;
}

Positions orderRows(Table const& table, std::vector<RowKey> const& keys) {
    Ptr<TableImplementation> const body = heldBody(table);
    std::size_t const items = body->items();
    Rows rows(items > 1 ? items - 1 : 0);
    std::iota(rows.begin(), rows.end(), std::size_t{1});
    for (auto end = keys.rbegin(); end != keys.rend();) { // the least significant keys first
        bool const descending = end->descending;
        std::vector<ColumnView> columns;
        for (; end != keys.rend() && end->descending == descending; ++end) {
            if (end->index < body->indices()) {
                columns.insert(columns.begin(), body->view(end->index, items));
            }
        }
        rows = orderedBy(columns, std::move(rows), !descending);
    }
    return {rows.begin(), rows.end()};
}

void addIndex(Table& target, std::vector<Cell>&& cells) {
    Column added;
    Cell* place = added.addUnmade(cells.size());
    for (Cell& cell : cells) {
        new (place++) Cell(std::move(cell));
    }
    madeBodyOf(target).addColumn(std::move(added));
}

void addIndex(Table& target, Cell const& name, Table const& source, std::size_t index,
              Positions const& rows) {
    Cell const& beyond = TableImplementation::sharedEmptyCell();
    Ptr<TableImplementation> const from = heldBody(source);
    std::span<Cell const> cells; // stay in place while another index is added
    if (index < from->indices()) {
        cells = std::as_const(*from).columns()[index];
    }
    Column added;
    added.reserve(rows.size() + 1);
    added.push_back(name);
    for (std::size_t const row : rows) {
        added.push_back(row < cells.size() ? cells[row] : beyond);
    }
    madeBodyOf(target).addColumn(std::move(added));
}

} // namespace QX
