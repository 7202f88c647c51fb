#pragma once

#include "table/model/bodies.h"

#include <cstddef>
#include <string_view>

namespace QX {

/// The text of a template cell that marks a position to compute with.
inline constexpr std::string_view marker = "%D";

/// True for a template cell that marks its position.
bool isMarker(Cell const& cell);

/// Ok when both tables have as many indices and, at most, as many items.
Status checkShape(TableImplementation const& left, TableImplementation const& right);

inline bool areTables(Cell const& left, Cell const& right) {
    return left.isA() == Cell::TableCell && right.isA() == Cell::TableCell;
}

inline bool areNumbers(Cell const& left, Cell const& right) {
    return left.isA() == Cell::NumericCell && right.isA() == Cell::NumericCell;
}

/// Where the walk of a rectangle stands.
struct Position {
    std::size_t indices;
    std::size_t items;
    std::size_t i = 0;
    std::size_t j = 0;

    bool ended() const { return items == 0 || i == indices; }
    void nextIndex() {
        ++i;
        j = 0;
    }
    /// Adds the cell at this position to a table that is filled in the order of the walk.
    void put(Ptr<Table> const& table, Cell const& cell) {
        TableImplementation& body = madeBody(table);
        (j == 0 ? body.addReserved(items) : body.columns().back()).push_back(cell);
        ++j;
    }
};

} // namespace QX
