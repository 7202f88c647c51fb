#include "cell/celltable.h"

#include "base/makeptr.h"
#include "qx/table.h"

namespace QX {

namespace {

Ptr<Table> orNullTable(Ptr<Table> const& table) {
    return table ? table : makePtr<Table>(Str("Null Table"));
}

} // namespace

CellTable::CellTable(Ptr<Table> const& table) : table_(orNullTable(table)) {
}

CellTable::CellTable(Ptr<Table const> const& table)
    : table_(orNullTable(table && table->data_ ? table->clone() : Ptr<Table>())) {
}

CellTable::~CellTable() = default;

bool CellTable::compare(CellImplementation const& other, bool /*flag*/) const {
    return other.isA() == Cell::TableCell &&
           static_cast<CellTable const&>(other).table_.get() == table_.get();
}

Ptr<CellImplementation> CellTable::clone() const {
    return makePtr<CellTable>(makePtr<Table>(table_->name()));
}

std::ostream& CellTable::display(std::ostream& os) const {
    Ptr<Table> const table(table_); // an override may drop the cell that holds it
    table->display(os, -1);
    return os;
}

Status CellTable::get(Ptr<Table>& out) const {
    out = table_;
    return Status();
}

Status CellTable::get(Ptr<Table const>& out) const {
    out = table_;
    return Status();
}

bool CellTable::lessThan(CellImplementation const& other) const {
    if (other.isA() != Cell::TableCell) {
        return false;
    }
    Table const& others = *static_cast<CellTable const&>(other).table_;
    return others.items(0) < table_->items(0) || others.indices() < table_->indices();
}

} // namespace QX
