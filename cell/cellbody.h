#pragma once

#include "cell/cellempty.h"
#include "cell/cellnumeric.h"
#include "cell/cellvalue.h"

namespace QX {

/// The body of a cell while it is looked at: its own or, where it has none, that of all empty cells or
/// one made of the number that the cell holds.
class CellBody {
public:
    explicit CellBody(Cell const& cell)
        : number_(cell.isA() == Cell::NumericCell ? numberOf(cell) : AnalyticDouble()),
          body_(bodyOf(cell)) {}
    CellBody(CellBody const&) = delete;
    CellBody& operator=(CellBody const&) = delete;

    CellImplementation const& operator*() const { return *body_; }
    CellImplementation const* operator->() const { return body_; }

private:
    CellImplementation const* bodyOf(Cell const& cell) const {
        switch (cell.isA()) {
        case Cell::EmptyCell:
            return &CellEmpty::shared();
        case Cell::NumericCell:
            return &number_;
        default:
            return CellImplementation::contentOf(cell).body();
        }
    }

    CellNumeric number_;
    CellImplementation const* body_;
};

} // namespace QX
