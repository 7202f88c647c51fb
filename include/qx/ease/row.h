#pragma once

#include "qx/ease/as.h"
#include "qx/ease/items.h"
#include "qx/ease/names.h"
#include "qx/ease/value.h"
#include "qx/table.h"

#include <cstddef>
#include <type_traits>

namespace QX {

namespace Detail {

/// Item j of index i, for one j.
struct ItemOfRow {
    Table const* table = nullptr;
    std::size_t row = 0;
    Cell const& operator()(std::size_t i) const { return table->get(i, row); }
};

} // namespace Detail

inline namespace Ease {

/// One row of a table, to read: the items at one position of all indices.
///
/// A small value that refers to its table, which must outlive it. As a range it is the cells of the row,
/// index by index.
class Row {
public:
    /// A random access iterator over the cells.
    using Iterator = Detail::NumberedIterator<Detail::ItemOfRow>;

    /// No row: may only be assigned to.
    Row() = default;
    /// Row `number` of a table, which must outlive this object.
    Row(Table const& table, std::size_t number) : table_(&table), number_(number) {}

    /// The number of the row; the first with data is 1.
    std::size_t number() const { return number_; }
    /// The table.
    Table const& table() const { return *table_; }
    /// The number of indices.
    std::size_t size() const { return table_->indices(); }

    /// The cell in the index of this name, an empty cell where the index is short; valid until the table
    /// grows. Raises as indexOf() does. Cost: one comparison per index; by number there is none.
    Cell const& operator[](IndexName const& name) const {
        Cell const& cell = table_->get(name, number_);
        if (&cell == &table_->get(Table::npos, 0)) {
            indexOf(*table_, name);
        }
        return cell;
    }
    /// The cell in the index of this number, an empty cell when there is none.
    Cell const& operator[](std::size_t index) const { return table_->get(index, number_); }

    /// The cell of the first index.
    Iterator begin() const { return {{table_, number_}, 0}; }
    /// Behind the cell of the last index.
    Iterator end() const { return {{table_, number_}, size()}; }

private:
    Table const* table_ = nullptr;
    std::size_t number_ = 0;
};

/// One cell of a row that can be written: reads as the cell, and stores what is assigned.
class ItemReference {
public:
    /// @cond
    ItemReference(Table& table, std::size_t row, IndexName const& name)
        : table_(&table), row_(row), index_(findIndex(table, name)) {
        if (index_ == Table::npos) {
            name_ = name;
        }
    }
    ItemReference(Table& table, std::size_t row, std::size_t index)
        : table_(&table), row_(row), index_(index) {}
    ItemReference(ItemReference const&) = default;
    ~ItemReference() = default;
    /// @endcond

    /// The cell, an empty one where the index is short; raises as indexOf() does for an unknown name.
    operator Cell const&() const {
        return table_->get(index_ == Table::npos ? indexOf(*table_, name_) : index_, row_);
    }
    /// Stores a value, growing a short index; an unknown name adds an index of that name. Cells and rows
    /// that were read before stay valid as Table::at() says.
    ItemReference const& operator=(Value const& value) const {
        if (index_ == Table::npos) {
            table_->at(name_, row_, value.cell());
        } else {
            table_->at(index_, row_, value.cell());
        }
        return *this;
    }
    /// Stores the value of the other cell.
    ItemReference& operator=(ItemReference const& other) {
        *this = Value(static_cast<Cell const&>(other));
        return *this;
    }

private:
    Table* table_;
    std::size_t row_;
    std::size_t index_;
    IndexName name_; // of an index that is not there
};

/// One row of a table, to read and write: `row["price"] = 3`.
class WritableRow : public Row {
public:
    /// No row: may only be assigned to.
    WritableRow() = default;
    /// Row `number` of a table, which must outlive this object.
    WritableRow(Table& table, std::size_t number) : Row(table, number), writable_(&table) {}

    /// The cell in the index of this name, to read or assign.
    ItemReference operator[](IndexName const& name) const { return {*writable_, number(), name}; }
    /// The cell in the index of this number, to read or assign; assigning adds indices up to it.
    ItemReference operator[](std::size_t index) const { return {*writable_, number(), index}; }

private:
    Table* writable_ = nullptr;
};

} // namespace Ease

namespace Detail {

/// Row j of a table.
struct RowOfTable {
    Table const* table = nullptr;
    Row operator()(std::size_t j) const { return {*table, j}; }
};
struct WritableRowOfTable {
    Table* table = nullptr;
    WritableRow operator()(std::size_t j) const { return {*table, j}; }
};

} // namespace Detail

inline namespace Ease {

/// The data rows of a table as a random access range of Row.
using Rows = Detail::NumberedRange<Detail::RowOfTable, Detail::Keeper>;
/// The data rows of a table, to read and write.
using WritableRows = Detail::NumberedRange<Detail::WritableRowOfTable, Detail::Keeper>;

/// The data rows of a table: `for (auto row : rows(table)) row["sum"] = as<double>(row["a"]);`
///
/// Rows of a table const are Row, others WritableRow. The range and its rows are valid as long as the
/// table; a range made from a handle holds the table itself. It has the rows that the table had when it
/// was made: rows added meanwhile are not visited. Raises Failure "No table provided" for a null handle.
inline Rows rows(Table const& table) {
    return {{&table}, 1, Detail::dataRows(table) + 1, Detail::Keeper()};
}
/// The same, to write to.
inline WritableRows rows(Table& table) {
    return {{&table}, 1, Detail::dataRows(table) + 1, Detail::Keeper()};
}
/// The same, holding the table; to write to unless it is const.
template <typename T, typename = std::enable_if_t<std::is_convertible_v<T*, Table const*>>>
auto rows(Ptr<T> const& table) {
    std::size_t const end = Detail::dataRows(*TableArgument(table)) + 1;
    using Range = std::conditional_t<std::is_const_v<T>, Rows, WritableRows>;
    return Range({table.get()}, 1, end, table);
}
Rows rows(Table const&& table) = delete;

/// Row `number` of a table, the names row being 0; of a position that the table lacks all cells are
/// empty.
inline Row rowOf(Table const& table, std::size_t number) {
    return {table, number};
}
/// The same, to write to.
inline WritableRow rowOf(Table& table, std::size_t number) {
    return {table, number};
}

} // namespace Ease
} // namespace QX
