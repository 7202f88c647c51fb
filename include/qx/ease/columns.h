#pragma once

#include "qx/ease/as.h"
#include "qx/ease/items.h"
#include "qx/ease/names.h"
#include "qx/ease/value.h"
#include "qx/rows.h"
#include "qx/table.h"

#include <cstddef>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace QX {

namespace Detail {

template <typename T>
struct IsOptional : std::false_type {};
template <typename T>
struct IsOptional<std::optional<T>> : std::true_type {
    using Value = T;
};

[[noreturn]] inline void raiseMisfit(Table const& table, std::size_t index, std::size_t row) {
    Cell const& cell = table.get(index, row);
    Str name;
    Str text;
    (void)table.get(index, 0).get(name, 0);
    bool const shown = cell.get(text, 0).ok();
    throw Failure(std::string("'") + name.get() + "' in row " + std::to_string(row) +
                  (cell.empty() ? " is empty" : " holds no such value: ") +
                  (cell.empty() ? ""
                   : shown      ? std::string("'") + text.get() + "'"
                                : "a table"));
}

/// The cells of an index of a table as values of C++.
template <typename T>
class ValueReader {
public:
    ValueReader(Table const& table, std::size_t index)
        : table_(table), index_(index), cells_(cellsOf(table, index)) {}

    /// The value in a row as an optional, or the value itself, which must be there.
    T operator()(std::size_t row) const {
        if constexpr (IsOptional<T>::value) {
            return as<typename IsOptional<T>::Value>(cells_[row]);
        } else {
            std::optional<T> value = as<T>(cells_[row]);
            if (!value) {
                raiseMisfit(table_, index_, row);
            }
            return *std::move(value);
        }
    }

private:
    Table const& table_;
    std::size_t index_;
    IndexCells cells_;
};

} // namespace Detail

inline namespace Ease {

/// The values of an index: `std::vector<double> prices = valuesOf<double>(table, "price")`.
///
/// One value for each data row, as as<T>() reads it. As std::optional<T> the cells without such a value
/// give none; otherwise they raise Failure "'price' in row 3 holds no such value: 'abc'", or "is empty".
/// Raises as indexOf() does, too. Cost: linear.
template <typename T>
std::vector<T> valuesOf(TableArgument const& table, IndexName const& name) {
    Detail::ValueReader<T> const read(*table, indexOf(table, name));
    std::size_t const end = Detail::dataRows(*table) + 1;
    std::vector<T> values;
    values.reserve(end - 1);
    for (std::size_t row = 1; row < end; ++row) {
        values.push_back(read(row));
    }
    return values;
}

/// The values of an index, `fallback` where a cell has no such value.
template <typename T>
std::vector<T> valuesOf(TableArgument const& table, IndexName const& name, T const& fallback) {
    std::vector<T> values;
    IndexCells const cells = cellsOf(*table, indexOf(table, name));
    std::size_t const end = Detail::dataRows(*table) + 1;
    values.reserve(end - 1);
    for (std::size_t row = 1; row < end; ++row) {
        values.push_back(valueOr(cells[row], fallback));
    }
    return values;
}

/// Reads an index into memory that there is: a std::span, std::vector, std::array or the like.
///
/// Raises Failure "'price' has 9 values for 8 places" when there are not as many places as data rows,
/// with nothing written, and as valuesOf() does for a cell without such a value; places before it are
/// then written.
template <typename Places>
void readInto(TableArgument const& table, IndexName const& name, Places&& places) {
    using T = std::remove_reference_t<decltype(*places.data())>;
    Detail::ValueReader<T> const read(*table, indexOf(table, name));
    std::size_t const count = Detail::dataRows(*table);
    if (places.size() != count) {
        throw Failure(std::string("'") + name.get() + "' has " + std::to_string(count) + " values for " +
                      std::to_string(places.size()) + " places");
    }
    for (std::size_t row = 1; row <= count; ++row) {
        places.data()[row - 1] = read(row);
    }
}

/// Adds an index to a table with the values of a container or braces, which become cells as Value says:
/// `addIndex(*table, "price", prices)`. An index of that name that there is keeps its place ahead of it.
///
/// Cost: linear.
inline void addIndex(Table& table, Value const& name, Values const& values) {
    std::vector<Cell> cells{name.cell()};
    cells.insert(cells.end(), values.cells().begin(), values.cells().end());
    QX::addIndex(table, std::move(cells));
}

/// Sets the values of an index from item 1 on: `setValues(*table, "price", prices)`. An unknown name adds
/// an index; items beyond the values are made empty.
///
/// Cost: linear.
inline void setValues(Table& table, IndexName const& name, Values const& values) {
    std::size_t const found = findIndex(table, name);
    if (found == Table::npos) {
        addIndex(table, static_cast<Str const&>(name), values);
        return;
    }
    std::vector<Cell> const& cells = values.cells();
    std::size_t const items = table.items(0);
    for (std::size_t row = 1; row < items || row <= cells.size(); ++row) {
        table.at(found, row) = row <= cells.size() ? cells[row - 1] : Cell();
    }
}

} // namespace Ease
} // namespace QX
