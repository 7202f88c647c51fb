#include "table/src/namelookup.h"
#include "table/src/raise.h"
#include "table/src/rowdistinct.h"
#include "table/src/tableimpl.h"

#include <algorithm>

namespace QX {

Status TableImplementation::select(TableImplementation const& operand, Ptr<Table>& result,
                                   bool keepUnmatched, bool distinct, bool invert) const {
    if (operand.items() > 2) {
        raise("Select items must be specified as indices not items in the selection table");
    }
    if (invert) {
        Ptr<Table> const others = unnamedBy(operand, keepUnmatched);
        return select(made(others), result, keepUnmatched, distinct, false);
    }
    Index const none;
    NameLookup lookup(*this);
    std::size_t const width = items();
    std::vector<Column> selected;
    for (std::size_t k = 0; k < operand.indices(); ++k) {
        Str name;
        Status const readable = operand.get(k, 0).get(name, 0);
        if (!readable.ok()) {
            return readable;
        }
        std::size_t const source = lookup.find(Cell(name));
        if (source != npos) {
            Cell const& rename = operand.get(k, 1);
            selected.push_back(
                column(source, width).renamed(rename.empty() ? operand.get(k, 0) : rename));
        } else if (keepUnmatched) {
            selected.push_back(Column(none, 1, sharedEmptyCell()).renamed(operand.get(k, 0)));
        }
    }
    result = distinct ? pickDistinct(selected) : copied(selected);
    return Status();
}

Ptr<Table> TableImplementation::copied(std::vector<Column> const& columns) const {
    Ptr<Table> const table = makePtr<Table>(name_);
    for (Column const& column : columns) {
        made(table).indices_.push_back(padded(column));
    }
    return table;
}

Ptr<Table> TableImplementation::pickDistinct(std::vector<Column>& columns) {
    std::size_t height = 0;
    for (Column const& column : columns) {
        height = std::max(height, column.items());
    }
    for (Column& column : columns) {
        column = column.resized(height);
    }
    return pickRows("Distinct", columns, distinctRows(columns));
}

Ptr<Table> TableImplementation::unnamedBy(TableImplementation const& operand, bool keepUnnamed) const {
    Ptr<Table> const others = makePtr<Table>();
    NameLookup lookup(operand);
    for (std::size_t i = 0; i < indices(); ++i) {
        Str name; // stays empty when the name has no text
        get(i, 0).get(name, 0);
        Cell const nameCell(name);
        bool const named = operand.get(lookup.find(nameCell), 0).isA() != Cell::EmptyCell;
        if (!named && (keepUnnamed || !name.empty())) {
            made(others).addSized(nameCell, 1);
        }
    }
    return others;
}

} // namespace QX
