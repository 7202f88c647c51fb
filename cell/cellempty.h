#pragma once

#include "cell/cellimplementation.h"

#include <string_view>

namespace QX {

/// The printed form of an empty cell, and the text that reads as one.
inline constexpr std::string_view emptyText = "[Empty]";

/// The body of an empty cell. Cells without a body share one that belongs to no cell.
class CellEmpty final : public CellImplementation {
public:
    using CellImplementation::get;

    /// The body that stands for those of all empty cells.
    static CellEmpty const& shared();

    bool compare(CellImplementation const& other, bool flag) const override;
    Ptr<CellImplementation> clone() const override;
    std::ostream& display(std::ostream& os) const override;
    Cell::CellType isA() const override { return Cell::EmptyCell; }
    bool empty() const override { return true; }
    Status get(Str& out, int precision) const override;
    Status get(bool& out) const override;
    bool lessThan(CellImplementation const& other) const override;
};

} // namespace QX
