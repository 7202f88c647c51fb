#pragma once

#include "qx/ease/names.h"
#include "qx/ease/numbered.h"
#include "qx/table.h"

#include <cstddef>
#include <type_traits>

namespace QX {

namespace Detail {

/// Item j of one index.
struct ItemOfIndex {
    Table const* table = nullptr;
    std::size_t index = 0;
    Cell const& operator()(std::size_t j) const { return table->get(index, j); }
};

/// Item j of one index, which has it.
struct WritableItemOfIndex {
    Table* table = nullptr;
    std::size_t index = 0;
    Cell& operator()(std::size_t j) const { return table->at(index, j); }
};

/// Holds a table that was given by handle; nothing for one given by reference.
using Keeper = Ptr<Table const>;

} // namespace Detail

inline namespace Ease {

/// The values of one index, items 1 and beyond, as a random access range of Cell const&; the table is
/// read as a rectangle, so a short index ends with empty cells.
using Items = Detail::NumberedRange<Detail::ItemOfIndex, Detail::Keeper>;

/// The same as a range of Cell&, to assign to.
using WritableItems = Detail::NumberedRange<Detail::WritableItemOfIndex, Detail::Keeper>;

/// One index of a table: its number, its name and its values.
class Index {
public:
    /// No index: may only be assigned to.
    Index() = default;
    /// Index `number` of a table, which must outlive this object.
    Index(Table const& table, std::size_t number) : table_(&table), number_(number) {}

    /// The number of the index.
    std::size_t number() const { return number_; }
    /// Item 0, the name.
    Cell const& name() const { return table_->get(number_, 0); }
    /// The values, items 1 and beyond.
    Items items() const {
        return {{table_, number_}, 1, Detail::dataRows(*table_) + 1, Detail::Keeper()};
    }
    /// The first value, item 1.
    Items::Iterator begin() const { return items().begin(); }
    /// Behind the last value.
    Items::Iterator end() const { return items().end(); }
    /// The number of values.
    std::size_t size() const { return Detail::dataRows(*table_); }
    /// Item j, item 0 being the name; an empty cell beyond the end.
    Cell const& operator[](std::size_t j) const { return table_->get(number_, j); }

private:
    Table const* table_ = nullptr;
    std::size_t number_ = 0;
};

} // namespace Ease

namespace Detail {

/// Index i of a table.
struct IndexOfTable {
    Table const* table = nullptr;
    Index operator()(std::size_t i) const { return {*table, i}; }
};

} // namespace Detail

inline namespace Ease {

/// The indices of a table as a random access range of Index.
using Indices = Detail::NumberedRange<Detail::IndexOfTable, Detail::Keeper>;

/// The indices of a table: `for (Index const index : indices(table))`.
///
/// The range and its elements are valid as long as the table; a range made from a handle holds the table
/// itself. It has the indices that the table had when it was made. Raises Failure "No table provided"
/// for a null handle.
inline Indices indices(TableArgument const& table) {
    return {{&*table}, 0, table->indices(), table.handle()};
}
Indices indices(Table const&& table) = delete;

/// The values of an index: `for (Cell const& price : items(table, "price"))`.
///
/// Valid as indices() says; the cells are valid until the table grows. Raises as indexOf() does.
inline Items items(TableArgument const& table, IndexName const& name) {
    return {{&*table, indexOf(table, name)}, 1, Detail::dataRows(*table) + 1, table.handle()};
}
Items items(Table const&& table, IndexName const& name) = delete;

/// The values of an index, to assign to; an index shorter than the table is first made as long with
/// empty cells.
inline WritableItems writableItems(Table& table, IndexName const& name) {
    std::size_t const index = indexOf(table, name);
    std::size_t const rows = Detail::dataRows(table);
    table.at(index, rows);
    return {{&table, index}, 1, rows + 1, Detail::Keeper()};
}
/// The same, holding the table.
template <typename T, typename = std::enable_if_t<std::is_convertible_v<T*, Table*>>>
WritableItems writableItems(Ptr<T> const& table, IndexName const& name) {
    std::size_t const rows = Detail::dataRows(*TableArgument(table));
    std::size_t const index = indexOf(table, name);
    table->at(index, rows);
    return {{table.get(), index}, 1, rows + 1, table};
}

} // namespace Ease
} // namespace QX
