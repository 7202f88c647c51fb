#pragma once

#include "qx/ease/names.h"
#include "qx/ease/value.h"
#include "qx/rows.h"
#include "qx/table.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace QX {
inline namespace Ease {

/// An index in braces: its name and its values.
struct IndexInit {
    /// With values in braces.
    IndexInit(Value indexName, std::initializer_list<Value> indexValues)
        : name(std::move(indexName)), values(indexValues) {}
    /// With the values of a container.
    IndexInit(Value indexName, Values const& indexValues)
        : name(std::move(indexName)), values(indexValues) {}

    Value name;    ///< item 0
    Values values; ///< items 1 and beyond
};

/// An attribute in braces: its path, see Table::setAttribute(), and its value.
struct AttributeInit {
    IndexName path; ///< with separator '/'
    Value value;    ///< what is kept there
};

/// Sets attributes of a table and returns it: `withAttributes(table, {{"source/year", 2023}})`.
///
/// Changes the attributes of `table` itself. Raises as Table::setAttribute() does.
inline Ptr<Table> withAttributes(Ptr<Table> const& table,
                                 std::initializer_list<AttributeInit> attributes) {
    TableArgument const required(table);
    for (AttributeInit const& each : attributes) {
        Detail::require(table->setAttribute(each.path, each.value.cell()));
    }
    return table;
}

/// Makes a table of its indices.
///
///     Ptr<Table> const prices = tableOf("prices", {
///         {"fruit", {"apple", "pear"}},
///         {"price", {3, 4.5}},
///         {"shops", {tableOf("shops", {{"town", {"Rome"}}}), std::nullopt}},
///     }, {{"source/year", 2023}});
///
/// Values become cells as Value says; nested tables are shared. Cost: linear.
inline Ptr<Table> tableOf(Str const& name, std::initializer_list<IndexInit> indices,
                          std::initializer_list<AttributeInit> attributes = {}) {
    Ptr<Table> const table(new Table(name));
    for (IndexInit const& index : indices) {
        std::vector<Cell> cells{index.name.cell()};
        cells.insert(cells.end(), index.values.cells().begin(), index.values.cells().end());
        addIndex(*table, std::move(cells));
    }
    return withAttributes(table, attributes);
}

/// Makes a table of its rows.
///
///     Ptr<Table> const prices = tableOfRows("prices", {"fruit", "price"}, {{"apple", 3}, {"pear", 4.5}});
///
/// A row may be shorter than the list of names. Raises Failure "Row 2 has 3 values for 2 indices".
/// Otherwise as tableOf().
inline Ptr<Table> tableOfRows(Str const& name, Names const& names,
                              std::initializer_list<std::initializer_list<Value>> rows,
                              std::initializer_list<AttributeInit> attributes = {}) {
    std::vector<std::vector<Cell>> indices;
    for (IndexName const& each : names) {
        indices.push_back({Cell(static_cast<Str const&>(each))});
    }
    std::size_t number = 0;
    for (std::initializer_list<Value> const& row : rows) {
        ++number;
        if (row.size() > indices.size()) {
            throw Failure("Row " + std::to_string(number) + " has " + std::to_string(row.size()) +
                          " values for " + std::to_string(indices.size()) + " indices");
        }
        for (std::size_t i = 0; i < row.size(); ++i) {
            indices[i].resize(number); // empty cells where earlier rows are short
            indices[i].push_back(row.begin()[i].cell());
        }
    }
    Ptr<Table> const table(new Table(name));
    for (std::vector<Cell>& cells : indices) {
        addIndex(*table, std::move(cells));
    }
    return withAttributes(table, attributes);
}

} // namespace Ease
} // namespace QX
