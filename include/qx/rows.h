#pragma once

#include "qx/export.h"
#include "qx/table.h"

#include <cstddef>
#include <vector>

namespace QX {

/// Numbers of rows of a table, or of its indices. Row 0 is the names row, row 1 the first with data.
using Positions = std::vector<std::size_t>;

/// The items of one index where they lie.
struct IndexCells {
    Cell const* cells = nullptr;  ///< the first, its name
    std::size_t count = 0;        ///< how many there are
    Cell const* beyond = nullptr; ///< an empty cell

    /// Item j, an empty cell beyond the end.
    Cell const& operator[](std::size_t j) const { return j < count ? cells[j] : *beyond; }
};

/// The items of an index, to read many of them without a call for each; none for a number that no index
/// has. Valid until the table grows or its body goes. Cost: none to speak of.
QX_API IndexCells cellsOf(Table const& table, std::size_t index) noexcept;

/// Finds the rows that are equal in some indices.
///
///     kind  planet dwarf planet       keys: kind       0 1 2 1
///
/// Returns as many numbers as the table has rows: for row j the first row equal to it, which is j itself
/// for the first of its group. Rows are equal when they hold the same value, as sameValue() says, in
/// every index that `keys` numbers; positions that an index lacks are empty. Without keys all rows
/// are equal. The names row is a group of its own.
///
/// Cost: linear in the rows and keys.
QX_API Positions groupRows(Table const& table, Positions const& keys);

/// The rows of two tables that are equal in pairs of indices.
struct RowMatches {
    /// For each row of the left table the first row of the right one equal to it, or Table::npos.
    Positions first;
    /// For each row of the right table the next one equal to it, or Table::npos.
    Positions next;
};

/// Finds for each row of `left` the rows of `right` that are equal to it; index leftKeys[k] is compared
/// with rightKeys[k], of which there must be as many. Equality is that of groupRows(). Names rows match
/// nothing.
///
///     RowMatches const found = matchRows(left, {0}, right, {2});
///     for (std::size_t j = found.first[i]; j != Table::npos; j = found.next[j]) // matches of row i
///
/// Raises Except "Left and right keys differ in number". Cost: linear in the rows and keys.
QX_API RowMatches matchRows(Table const& left, Positions const& leftKeys, Table const& right,
                            Positions const& rightKeys);

/// An index to order rows by.
struct RowKey {
    std::size_t index;       ///< its number
    bool descending = false; ///< whether from the greatest value to the least
};

/// The data rows of a table in the order of some indices, the most significant first; rows that are tied
/// in all of them keep their order, in both directions.
///
/// Every row is listed exactly once. The order is that of orderValues(), for which Table::sort() differs
/// only where it loses or repeats rows (NaN, numbers next to each other) or leaves the order open.
///
/// Cost: n log n in the rows.
QX_API Positions orderRows(Table const& table, std::vector<RowKey> const& keys);

/// Adds an index to `target` that holds `cells`, its name the first of them.
///
/// Faster than adding the cells one by one: the index is made at its size, and cells are moved. Raises
/// std::bad_alloc with nothing changed. Cost: linear.
QX_API void addIndex(Table& target, std::vector<Cell>&& cells);

/// Adds an index to `target`: `name`, then the cells that index number `index` of `source` holds in the
/// given rows, shared; empty cells for positions that `source` lacks, such as row Table::npos.
///
/// `source` may be `target`. Raises std::bad_alloc with nothing changed. Cost: linear in the rows.
QX_API void addIndex(Table& target, Cell const& name, Table const& source, std::size_t index,
                     Positions const& rows);

} // namespace QX
