#pragma once

#include "qx/ease/names.h"
#include "qx/ease/row.h"
#include "qx/ease/value.h"
#include "qx/rows.h"
#include "qx/table.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

/// \file
/// Operations that choose and order rows.
///
/// Each reads a table, given as a Table or a handle, and makes a new one of the same name that holds its
/// names row and some of its data rows, cells and nested tables shared; attributes are empty. Nothing is
/// changed. Tables are read as rectangles, so that short indices become as long as the others.
///
/// All raise Failure: "No table provided" for a null handle, and as indexOf() does for a name that no
/// index has. Unless said otherwise, the cost is linear in the cells of both tables.

namespace QX {

namespace Detail {

/// The names row of a table and the given rows.
inline Ptr<Table> pickedRows(Table const& table, Positions const& rows) {
    Ptr<Table> picked(new Table(table.name()));
    for (std::size_t i = 0; i < table.indices(); ++i) {
        addIndex(*picked, table.get(i, 0), table, i, rows);
    }
    return picked;
}

/// The data rows of which `wanted(row number)` holds.
template <typename Wanted>
Positions rowsWhere(Table const& table, Wanted const& wanted) {
    Positions rows;
    std::size_t const end = dataRows(table) + 1;
    for (std::size_t j = 1; j < end; ++j) {
        if (wanted(j)) {
            rows.push_back(j);
        }
    }
    return rows;
}

/// The numbers from `first` on, up to but without `end`.
inline Positions rowRange(std::size_t first, std::size_t end) {
    Positions rows(end - first);
    for (std::size_t k = 0; k < rows.size(); ++k) {
        rows[k] = first + k;
    }
    return rows;
}

/// The rows that repeat no earlier one in some indices.
inline Ptr<Table> firstRows(Table const& table, Positions const& indices) {
    Positions const groups = groupRows(table, indices);
    return pickedRows(table, rowsWhere(table, [&](std::size_t j) { return groups[j] == j; }));
}

/// Tells for each row whether its cell in an index holds one of some values.
inline RowMatches matchValues(Table const& table, IndexName const& name, Values const& values) {
    std::size_t const index = indexOf(table, name);
    std::vector<Cell> cells(1);
    cells.insert(cells.end(), values.cells().begin(), values.cells().end());
    cells.insert(cells.end(), values.texts().begin(), values.texts().end());
    Table sought;
    addIndex(sought, std::move(cells));
    return matchRows(table, {index}, sought, {0});
}

} // namespace Detail

inline namespace Ease {

/// A name to sort by, ascending unless descending() makes it another.
struct SortKey {
    /// Ascending.
    template <typename Text, typename = std::enable_if_t<std::is_convertible_v<Text const&, IndexName>>>
    SortKey(Text const& text) : name(text) {}
    /// In either direction.
    SortKey(IndexName const& text, bool down) : name(text), descending(down) {}

    IndexName name;          ///< of the index
    bool descending = false; ///< whether from the greatest value to the least
};

/// A name to sort by from the largest value to the smallest.
inline SortKey descending(IndexName const& name) {
    return {name, true};
}

/// The rows in the order of some indices, the most significant first; rows that are equal in all of them
/// keep their order: `sorted(t, {"kind", descending("moons")})`.
///
/// Every row is listed once. The order is that of orderValues(): empty cells, numbers, NaN, texts by
/// byte, tables, errors; descending the other way round. Cost: n log n in the rows.
[[nodiscard]] inline Ptr<Table> sorted(TableArgument const& table, std::initializer_list<SortKey> keys) {
    std::vector<RowKey> numbers;
    for (SortKey const& key : keys) {
        numbers.push_back({indexOf(table, key.name), key.descending});
    }
    return Detail::pickedRows(*table, orderRows(*table, numbers));
}
/// The rows in the order of one index.
[[nodiscard]] inline Ptr<Table> sorted(TableArgument const& table, SortKey const& key) {
    return sorted(table, {key});
}

/// The rows whose cell in an index holds one of some values, in their order: `where(t, "kind", "planet")`
/// or `where(t, "kind", {"planet", "moon"})`.
///
/// Values are the same as sameValue() says; "" and std::nullopt stand for empty cells. A text stands for
/// what it reads as and for itself: "7" finds the number and the text that textCell() makes.
[[nodiscard]] inline Ptr<Table> where(TableArgument const& table, IndexName const& name,
                                      Values const& values) {
    RowMatches const found = Detail::matchValues(*table, name, values);
    return Detail::pickedRows(
        *table, Detail::rowsWhere(*table, [&](std::size_t j) { return found.first[j] != Table::npos; }));
}

/// The rows whose cell in an index holds none of some values, in their order.
[[nodiscard]] inline Ptr<Table> whereNot(TableArgument const& table, IndexName const& name,
                                         Values const& values) {
    RowMatches const found = Detail::matchValues(*table, name, values);
    return Detail::pickedRows(
        *table, Detail::rowsWhere(*table, [&](std::size_t j) { return found.first[j] == Table::npos; }));
}

/// The rows of which `wanted(Row)` is true, in their order:
/// `where(t, [](Row row) { return as<double>(row["price"]) > 100; })`.
///
/// What `wanted` raises is passed on.
template <typename Wanted, typename = decltype(bool(std::declval<Wanted const&>()(Row())))>
[[nodiscard]] Ptr<Table> where(TableArgument const& table, Wanted const& wanted) {
    return Detail::pickedRows(*table, Detail::rowsWhere(*table, [&](std::size_t j) {
        return static_cast<bool>(wanted(Row(*table, j)));
    }));
}

/// The rows that repeat no earlier one in some indices, in their order: of equal rows the first.
///
/// Rows are equal as groupRows() says.
[[nodiscard]] inline Ptr<Table> distinct(TableArgument const& table, Names const& names) {
    return Detail::firstRows(*table, indicesOf(table, names));
}
/// The rows that repeat no earlier one in all indices.
[[nodiscard]] inline Ptr<Table> distinct(TableArgument const& table) {
    return Detail::firstRows(*table, Detail::rowRange(0, table->indices()));
}

/// All rows but those with the given numbers, of which the first is 1.
///
/// Raises Failure "No row 12 in 'prices', which has 9" for a number that no data row has.
[[nodiscard]] inline Ptr<Table> without(TableArgument const& table, Positions const& rows) {
    std::size_t const count = Detail::dataRows(*table);
    std::vector<bool> dropped(count + 1);
    for (std::size_t const row : rows) {
        if (row == 0 || row > count) {
            throw Failure("No row " + std::to_string(row) + " in '" + table->name().get() +
                          "', which has " + std::to_string(count));
        }
        dropped[row] = true;
    }
    return Detail::pickedRows(*table,
                              Detail::rowsWhere(*table, [&](std::size_t j) { return !dropped[j]; }));
}

/// The first rows, all when there are fewer.
[[nodiscard]] inline Ptr<Table> head(TableArgument const& table, std::size_t count = 5) {
    std::size_t const rows = Detail::dataRows(*table);
    return Detail::pickedRows(*table, Detail::rowRange(1, (count < rows ? count : rows) + 1));
}

/// The last rows, all when there are fewer.
[[nodiscard]] inline Ptr<Table> tail(TableArgument const& table, std::size_t count = 5) {
    std::size_t const rows = Detail::dataRows(*table);
    return Detail::pickedRows(*table, Detail::rowRange(count < rows ? rows - count + 1 : 1, rows + 1));
}

} // namespace Ease
} // namespace QX
