#pragma once

#include "memory/blocks.h"
#include "qx/cell.h"

#include <cstddef>
#include <span>

namespace QX {

/// Row numbers of a table, in an order that matters and perhaps repeated.
using Rows = BlockVector<std::size_t>;

/// One index seen as a column of a table: as many items as the table's longest index, those it lacks
/// empty.
class ColumnView {
public:
    ColumnView(std::span<Cell const> cells, std::size_t items, Cell const& beyond)
        : cells_(cells), title_(cells.empty() ? &beyond : &cells.front()), items_(items),
          beyond_(&beyond) {}

    /// The same column under another name, which must outlive it.
    ColumnView renamed(Cell const& title) const {
        ColumnView column(*this);
        column.title_ = &title;
        return column;
    }
    /// The same column of so many items.
    ColumnView resized(std::size_t items) const {
        ColumnView column(*this);
        column.items_ = items;
        return column;
    }

    /// The number of items, the name included.
    std::size_t items() const { return items_; }
    /// Item j; item 0 is the name.
    Cell const& operator[](std::size_t j) const {
        if (j == 0) {
            return *title_;
        }
        return j < cells_.size() ? cells_[j] : *beyond_;
    }

private:
    std::span<Cell const> cells_;
    Cell const* title_;
    std::size_t items_;
    Cell const* beyond_;
};

} // namespace QX
