#pragma once

#include "cell/cellimplementation.h"
#include "cell/sharedtext.h"

#include <cstdint>
#include <string_view>

namespace QX {

class CellTable;

/// The number of a numeric cell.
inline AnalyticDouble numberOf(Cell const& cell) {
    Detail::CellContent const& content = CellImplementation::contentOf(cell);
    AnalyticDouble number;
    number.value = content.number();
    number.valid = content.isValid();
    return number;
}

/// The text of a string cell; valid as long as the cell stays where it is.
inline std::string_view textOf(Cell const& cell) {
    Detail::CellContent const& content = CellImplementation::contentOf(cell);
    return content.isShort() ? std::string_view(content.shortText(), content.shortSize())
                             : SharedText::of(content.block()).text();
}

/// True for cells that hold the same number, short text or body, by their bits.
inline bool holdSame(Cell const& left, Cell const& right) {
    return CellImplementation::contentOf(left).isSame(CellImplementation::contentOf(right));
}

/// The body of a table cell.
CellTable const& tableBody(Cell const& cell);

/// The handle by which a table cell holds its nested table.
Ptr<Table> const& handleOf(Cell const& cell);

/// That handle; null for every other cell.
inline Ptr<Table> const* handleIn(Cell const& cell) {
    return cell.isA() == Cell::TableCell ? &handleOf(cell) : nullptr;
}

/// The nested table of a table cell without a handle of its own; null for every other cell.
inline Table const* nestedIn(Cell const& cell) {
    return cell.isA() == Cell::TableCell ? CellImplementation::contentOf(cell).table() : nullptr;
}

/// The most handles that share the body of a table cell or its table.
std::uint32_t ownersOf(Cell const& cell);

/// True for a string cell whose text is a date, by which it may equal a number.
bool isDate(Cell const& cell);

} // namespace QX
