// The operations of the handle, which all forward to the body. Each holds a reference to the body
// meanwhile: the result handle may have been the last owner of this table.

#include "qx/table.h"

#include "table/src/tableimpl.h"

namespace QX {

Status Table::merge(Ptr<Table const> const& operand, Ptr<Table>& result, bool byName) const {
    return heldBody()->merge(TableImplementation::required(operand), result, byName);
}

Status Table::fill(Ptr<Table const> const& operand, Ptr<Table>& result, int count) const {
    return heldBody()->fill(TableImplementation::required(operand), result, count);
}

Status Table::append(Ptr<Table const> const& operand, Ptr<Table>& result, bool addIndices,
                     bool distinct) const {
    TableImplementation const& rows = TableImplementation::required(operand, "No append table provided");
    return heldBody()->append(rows, result, addIndices, distinct);
}

Status Table::overlay(Ptr<Table const> const& operand, Ptr<Table>& result, bool matchedOnly,
                      bool emptyOverwrites, bool operandItems) const {
    TableImplementation const* const upper = operand ? &TableImplementation::of(*operand) : nullptr;
    return heldBody()->overlay(upper, result, {matchedOnly, emptyOverwrites, operandItems});
}

Status Table::select(Ptr<Table const> const& operand, Ptr<Table>& result, bool keepUnmatched,
                     bool distinct, bool invert) const {
    return heldBody()->select(TableImplementation::required(operand), result, keepUnmatched, distinct,
                              invert);
}

Status Table::filter(Ptr<Table const> const& operand, Ptr<Table>& result, bool keepEmpty,
                     bool exclude) const {
    return heldBody()->filter(TableImplementation::required(operand), result, keepEmpty, exclude);
}

Status Table::transpose(Ptr<Table>& result) const {
    return heldBody()->transpose(result);
}

Status Table::sort(Ptr<Table const> const& operand, Ptr<Table>& result, bool ascending) const {
    return heldBody()->sort(TableImplementation::required(operand), result, ascending);
}

Status Table::compare(Ptr<Table const> const& right, Ptr<Table>& result, bool flag) const {
    return heldBody()->compare(TableImplementation::required(right), result, flag);
}

bool Table::match(Ptr<Table const> const& right, bool flag) const {
    return !flag && heldBody()->match(TableImplementation::required(right));
}

Status Table::operation(Ptr<Table const> const& right, Str const& op, Ptr<Table const> const& templ,
                        Ptr<Table>& result) const {
    TableImplementation const& guide = TableImplementation::required(templ);
    return heldBody()->operation(TableImplementation::required(right), op, guide, result);
}

Status Table::makeTemplate(Ptr<Table const> const& other, Ptr<Table>& result) const {
    return heldBody()->makeTemplate(TableImplementation::required(other), result);
}

Status Table::unaryOperation(Str const& op, Ptr<Table const> const& templ, double& total) const {
    TableImplementation const& guide = TableImplementation::required(templ);
    total = 0;
    return heldBody()->unaryOperation(op, guide, total);
}

} // namespace QX
