#include "table/src/namelookup.h"
#include "table/src/tableimpl.h"

namespace QX {

Status TableImplementation::overlay(TableImplementation const* operand, Ptr<Table>& result,
                                    OverlayFlags const& flags) const {
    requireOther(result);
    Ptr<Table> const table = makePtr<Table>(operand == nullptr ? name_ : operand->name_);
    result = table;
    TableImplementation& laid = made(table);
    copyRectangle(laid);
    Status status;
    if (operand == nullptr) {
        return status;
    }
    NameLookup lookup(*this);
    std::size_t const width = flags.operandItems ? operand->items() : items();
    for (std::size_t k = operand->indices(); k-- > 0;) {
        std::size_t const match = lookup.find(operand->get(k, 0));
        if (match == npos && flags.matchedOnly) {
            continue;
        }
        std::size_t const target = match == npos ? laid.indices() : match;
        for (std::size_t j = width; j-- > 0;) {
            Cell const& cell = operand->get(k, j);
            if (cell.empty() && !flags.emptyOverwrites) {
                continue;
            }
            Cell& place = laid.at(target, j);
            if (cell.isA() == Cell::TableCell) {
                Ptr<Table> const lower =
                    place.isA() == Cell::TableCell ? tableOf(place) : makePtr<Table>();
                Ptr<Table> nested;
                status = lower->overlay(tableOf(cell), nested, flags.matchedOnly, flags.emptyOverwrites,
                                        flags.operandItems);
                place = Cell(nested);
            } else if (!cell.empty() || place.isA() != Cell::TableCell) {
                place = cell;
            }
        }
    }
    return status;
}

} // namespace QX
