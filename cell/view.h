#pragma once

#include "base/makeptr.h"
#include "cell/cellimplementation.h"

#include <cstddef>
#include <string_view>

namespace QX {

/// The text of a string cell; valid as long as the cell stays where it is.
inline std::string_view textOf(Cell const& cell) {
    return CellImplementation::contentOf(cell).text();
}

/// The number of a numeric cell.
inline AnalyticDouble numberOf(Cell const& cell) {
    return CellImplementation::contentOf(cell).analytic();
}

/// The handle by which a table cell holds its nested table; never null.
inline Ptr<Table> const& handleOf(Cell const& cell) {
    return static_cast<Counted<Ptr<Table>>*>(CellImplementation::contentOf(cell).block())->object;
}

/// That handle; null for every other cell.
inline Ptr<Table> const* handleIn(Cell const& cell) {
    return cell.isA() == Cell::TableCell ? &handleOf(cell) : nullptr;
}

/// The nested table of a table cell without a handle of its own; null for every other cell.
inline Table const* nestedIn(Cell const& cell) {
    return cell.isA() == Cell::TableCell ? CellImplementation::contentOf(cell).table() : nullptr;
}

/// The status of an error cell.
inline Status const& statusOf(Cell const& cell) {
    return CellImplementation::contentOf(cell).status();
}

/// True for cells that hold the same number, short text, or share of one block, by their bits.
inline bool sameBits(Cell const& left, Cell const& right) {
    return CellImplementation::contentOf(left).hasSameBits(CellImplementation::contentOf(right));
}

/// What the kinds of cells hold, each as a type of its own. A view is valid as long as its cell.
struct EmptyView {};
struct TextView {
    std::string_view text;
};
struct NumberView {
    AnalyticDouble number;
};
struct TableView {
    Ptr<Table> const& table;
};
struct ErrorView {
    Status const& status;
};

/// How many kinds there are. A new one needs a view, a case below, and its row and column in each matrix.
inline constexpr std::size_t kinds = Cell::ErrorCell + 1;

/// Calls `call` with the view of what `cell` holds.
template <typename Call>
decltype(auto) visit(Cell const& cell, Call const& call) {
    switch (cell.isA()) {
    case Cell::EmptyCell:
        return call(EmptyView());
    case Cell::StringCell:
        return call(TextView{textOf(cell)});
    case Cell::NumericCell:
        return call(NumberView{numberOf(cell)});
    case Cell::TableCell:
        return call(TableView{handleOf(cell)});
    case Cell::ErrorCell:
        break;
    }
    return call(ErrorView{statusOf(cell)});
}

} // namespace QX
