#pragma once

#include "table/model/tableimpl.h"

#include <cstddef>
#include <span>

namespace QX {

/// Ends a walk that meets the same tables over and over. A table that holds the next one twice, n levels
/// deep, is met along 2^n ways, more than there is memory or time for.
class Repeats {
public:
    /// Takes note of one more nested table. Raises "Nested tables repeat too often" past
    /// Table::repeatLimit() more tables than `tableCells()` counts cells that hold one, which is how many
    /// a walk meets without repeats; counts only past the limit itself, once.
    template <typename TableCells>
    void add(TableCells const& tableCells) {
        if (++met_ > allowed_) {
            allow(counted_ ? 0 : tableCells());
        }
    }

private:
    /// Raises unless so many table cells allow for what was met.
    void allow(std::size_t tableCells);

    std::size_t met_ = 0;
    std::size_t allowed_ = Table::repeatLimit();
    bool counted_ = false;
};

/// The cells that hold a table in some tables and all tables nested in them, attributes included, each
/// table counted once.
std::size_t countTableCells(std::span<TableImplementation const* const> roots);

} // namespace QX
