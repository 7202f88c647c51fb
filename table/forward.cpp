// The whole-table members of the handle, which all forward to the rooms. Each holds the bodies that it
// reads meanwhile: the result handle may be the last owner of any of them.

#include "table/model/bodies.h"
#include "table/model/raise.h"
#include "table/operations/operations.h"
#include "table/walks/walks.h"

#include <ostream>

namespace QX {

namespace {

using Body = Ptr<TableImplementation>;

/// The data body of an operand, shared; raises when the handle is null.
Body required(Ptr<Table const> const& operand, char const* complaint = "No operand table provided") {
    if (!operand) {
        raise(complaint);
    }
    return heldBody(*operand);
}

} // namespace

Status Table::merge(Ptr<Table const> const& operand, Ptr<Table>& result, bool byName) const {
    Body const upper = required(operand);
    return Operations::merge(*heldBody(*this), *upper, result, byName);
}

Status Table::fill(Ptr<Table const> const& operand, Ptr<Table>& result, int count) const {
    Body const values = required(operand);
    return Operations::fill(*heldBody(*this), *values, result, count);
}

Status Table::append(Ptr<Table const> const& operand, Ptr<Table>& result, bool addIndices,
                     bool distinct) const {
    Body const rows = required(operand, "No append table provided");
    return Operations::append(*heldBody(*this), *rows, result, addIndices, distinct);
}

Status Table::overlay(Ptr<Table const> const& operand, Ptr<Table>& result, bool matchedOnly,
                      bool emptyOverwrites, bool operandItems) const {
    Body const upper = operand ? heldBody(*operand) : Body();
    return Walks::overlay(*heldBody(*this), upper.get(), result,
                          {matchedOnly, emptyOverwrites, operandItems});
}

Status Table::select(Ptr<Table const> const& operand, Ptr<Table>& result, bool keepUnmatched,
                     bool distinct, bool invert) const {
    Body const names = required(operand);
    return Operations::select(*heldBody(*this), *names, result, keepUnmatched, distinct, invert);
}

Status Table::filter(Ptr<Table const> const& operand, Ptr<Table>& result, bool keepEmpty,
                     bool exclude) const {
    Body const conditions = required(operand);
    return Operations::filter(*heldBody(*this), *conditions, result, keepEmpty, exclude);
}

Status Table::transpose(Ptr<Table>& result) const {
    return Operations::transpose(*heldBody(*this), result);
}

Status Table::sort(Ptr<Table const> const& operand, Ptr<Table>& result, bool ascending) const {
    Body const keys = required(operand);
    return Operations::sort(*heldBody(*this), *keys, result, ascending);
}

Status Table::compare(Ptr<Table const> const& right, Ptr<Table>& result, bool flag) const {
    Body const other = required(right);
    return Walks::compare(*heldBody(*this), *other, result, flag);
}

bool Table::match(Ptr<Table const> const& right, bool flag) const {
    if (flag) {
        return false;
    }
    Body const other = required(right);
    return Walks::match(*heldBody(*this), *other);
}

Status Table::operation(Ptr<Table const> const& right, Str const& op, Ptr<Table const> const& templ,
                        Ptr<Table>& result) const {
    Body const guide = required(templ);
    Body const other = required(right);
    return Walks::operation(*heldBody(*this), *other, op, *guide, result);
}

Status Table::makeTemplate(Ptr<Table const> const& other, Ptr<Table>& result) const {
    Body const right = required(other);
    return Walks::makeTemplate(*heldBody(*this), *right, result);
}

Status Table::unaryOperation(Str const& op, Ptr<Table const> const& templ, double& total) const {
    Body const guide = required(templ);
    total = 0;
    return Walks::unaryOperation(*heldBody(*this), op, *guide, total);
}

bool Table::check() const {
    return Walks::check(bodyOf(*this));
}

Ptr<Table> Table::clone() const {
    return Walks::clone(*this);
}

std::ostream& Table::display(std::ostream& os, int number) const {
    return data_ ? Walks::display(data_, os, number) : os << "Null table" << std::endl;
}

} // namespace QX
