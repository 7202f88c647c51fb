#pragma once

#include "qx/cell.h"

#include <utility>

namespace QX {

/// The body that a cell can be made from, and the door to what a cell holds.
class CellImplementation {
public:
    /// A body that holds what `cell` holds.
    explicit CellImplementation(Cell cell) : cell_(std::move(cell)) {}

    /// The cell that shares what this body holds.
    Cell const& cell() const { return cell_; }

    /// What a cell holds.
    static Detail::CellContent const& contentOf(Cell const& cell) { return cell.content_; }
    /// The cell that holds `content`.
    static Cell cellOf(Detail::CellContent&& content) { return Cell(std::move(content)); }

private:
    Cell cell_;
};

} // namespace QX
