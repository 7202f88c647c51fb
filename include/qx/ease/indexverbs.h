#pragma once

#include "qx/ease/names.h"
#include "qx/ease/row.h"
#include "qx/ease/rowverbs.h"
#include "qx/ease/value.h"
#include "qx/rows.h"
#include "qx/table.h"

#include <cstddef>
#include <initializer_list>
#include <type_traits>
#include <utility>
#include <vector>

/// \file
/// Operations that choose, name and add indices.
///
/// They take, share and raise what those of rowverbs.h do; the cost is linear in the cells of the new
/// table.

namespace QX {

namespace Detail {

/// A new table of the same name with some indices, in this order.
inline Ptr<Table> pickedIndices(Table const& table, Positions const& indices) {
    Ptr<Table> picked(new Table(table.name()));
    Positions const rows = rowRange(1, dataRows(table) + 1);
    for (std::size_t const index : indices) {
        addIndex(*picked, table.get(index, 0), table, index, rows);
    }
    return picked;
}

/// The cells that a function gives for the rows of a table, behind a name.
template <typename Function>
std::vector<Cell> computed(Table const& table, Cell const& name, Function const& function) {
    std::vector<Cell> cells{name};
    std::size_t const end = dataRows(table) + 1;
    cells.reserve(end);
    for (std::size_t j = 1; j < end; ++j) {
        cells.push_back(Value(function(Row(table, j))).cell());
    }
    return cells;
}

/// A copy of a table with an index put in the place of the one of its name, or behind all.
inline Ptr<Table> withCells(Table const& table, IndexName const& name, std::vector<Cell>&& cells) {
    Ptr<Table> made(new Table(table.name()));
    Positions const rows = rowRange(1, dataRows(table) + 1);
    std::size_t const found = findIndex(table, name);
    std::size_t const place = found == Table::npos ? table.indices() : found;
    for (std::size_t i = 0; i < place; ++i) {
        addIndex(*made, table.get(i, 0), table, i, rows);
    }
    addIndex(*made, std::move(cells));
    for (std::size_t i = place + 1; i < table.indices(); ++i) {
        addIndex(*made, table.get(i, 0), table, i, rows);
    }
    return made;
}

} // namespace Detail

inline namespace Ease {

/// The indices of these names, in the order of the names: `selected(t, {"body", "moons"})`.
[[nodiscard]] inline Ptr<Table> selected(TableArgument const& table, Names const& names) {
    return Detail::pickedIndices(*table, indicesOf(table, names));
}

/// All indices but those of these names, in their order.
[[nodiscard]] inline Ptr<Table> withoutIndices(TableArgument const& table, Names const& names) {
    std::vector<bool> dropped(table->indices());
    for (std::size_t const index : indicesOf(table, names)) {
        dropped[index] = true;
    }
    Positions kept;
    for (std::size_t i = 0; i < dropped.size(); ++i) {
        if (!dropped[i]) {
            kept.push_back(i);
        }
    }
    return Detail::pickedIndices(*table, kept);
}

/// An index's name and its new one.
struct Renaming {
    IndexName from; ///< the name that the table has
    Value to;       ///< the one that the result has
};

/// The same table with other names: `renamed(t, {{"body", "planet"}, {"moons", "satellites"}})`.
[[nodiscard]] inline Ptr<Table> renamed(TableArgument const& table,
                                        std::initializer_list<Renaming> names) {
    std::vector<Cell> titles;
    for (std::size_t i = 0; i < table->indices(); ++i) {
        titles.push_back(table->get(i, 0));
    }
    for (Renaming const& each : names) {
        titles[indexOf(table, each.from)] = each.to.cell();
    }
    Ptr<Table> made(new Table(table->name()));
    Positions const rows = Detail::rowRange(1, Detail::dataRows(*table) + 1);
    for (std::size_t i = 0; i < titles.size(); ++i) {
        addIndex(*made, titles[i], *table, i, rows);
    }
    return made;
}

/// The same table with an index of these values in the place of the one of its name, or else behind all
/// others: `withIndex(t, "price", {3, 4})`. As many values as rows is usual, not required.
[[nodiscard]] inline Ptr<Table> withIndex(TableArgument const& table, IndexName const& name,
                                          Values const& values) {
    std::vector<Cell> cells{Cell(static_cast<Str const&>(name))};
    cells.insert(cells.end(), values.cells().begin(), values.cells().end());
    return Detail::withCells(*table, name, std::move(cells));
}

/// The same with an index of what `function(Row)` gives for each row, which becomes a cell as Value
/// says: `withIndex(t, "area", [](Row row) { return valueOr(row["a"], 0.0) * valueOr(row["b"], 0.0); })`.
///
/// What `function` raises is passed on.
template <typename Function, typename = decltype(Value(std::declval<Function const&>()(Row())))>
[[nodiscard]] Ptr<Table> withIndex(TableArgument const& table, IndexName const& name,
                                   Function const& function) {
    Cell const title(static_cast<Str const&>(name));
    return Detail::withCells(*table, name, Detail::computed(*table, title, function));
}

} // namespace Ease
} // namespace QX
