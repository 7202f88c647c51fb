#pragma once

#include "qx/cell.h"

#include <cstddef>
#include <vector>

namespace QX {

/// Row numbers of a table, in an order that matters and perhaps repeated.
using Rows = std::vector<std::size_t>;

/// One index seen as a column of a table: as many items as the table's longest index, those it lacks
/// empty.
class Column {
public:
    Column(std::vector<Cell> const& cells, std::size_t items, Cell const& beyond)
        : cells_(&cells), items_(items), beyond_(&beyond) {}

    /// The number of items, the name included.
    std::size_t items() const { return items_; }
    Cell const& operator[](std::size_t j) const { return j < cells_->size() ? (*cells_)[j] : *beyond_; }

private:
    std::vector<Cell> const* cells_;
    std::size_t items_;
    Cell const* beyond_;
};

} // namespace QX
