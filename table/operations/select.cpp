#include "base/makeptr.h"
#include "table/model/bodies.h"
#include "table/model/name.h"
#include "table/model/namelookup.h"
#include "table/model/raise.h"
#include "table/operations/operations.h"
#include "table/rows/gather.h"
#include "table/rows/rowdistinct.h"

#include <algorithm>

namespace QX {

namespace {

/// A new table that holds columns.
Ptr<Table> copied(Str const& name, std::vector<ColumnView> const& columns) {
    Ptr<Table> const table = makePtr<Table>(name);
    for (ColumnView const& column : columns) {
        madeBody(table).addCopy(column);
    }
    return table;
}

/// A new table of the rows of columns that equal no earlier row.
Ptr<Table> pickDistinct(std::vector<ColumnView>& columns) {
    std::size_t height = 0;
    for (ColumnView const& column : columns) {
        height = std::max(height, column.items());
    }
    for (ColumnView& column : columns) {
        column = column.resized(height);
    }
    return pickRows("Distinct", columns, distinctRows(columns));
}

/// Adds to `others` a selection of the indices that `operand` does not name.
void addUnnamed(TableImplementation const& table, TableImplementation const& operand, bool keepUnnamed,
                TableImplementation& others) {
    NameLookup lookup(operand);
    for (std::size_t i = 0; i < table.indices(); ++i) {
        Str name; // stays empty when the name has no text
        (void)table.get(i, 0).get(name, 0);
        Cell const nameCell = soughtName(table.get(i, 0), name);
        bool const named = operand.get(lookup.find(nameCell), 0).isA() != Cell::EmptyCell;
        if (!named && (keepUnnamed || !name.empty())) {
            others.addSized(nameCell, 1);
        }
    }
}

} // namespace

Status Operations::select(TableImplementation const& table, TableImplementation const& operand,
                          Ptr<Table>& result, bool keepUnmatched, bool distinct, bool invert) {
    if (operand.items() > 2) {
        raise("Select items must be specified as indices not items in the selection table");
    }
    if (invert) {
        TableImplementation others{Str()};
        addUnnamed(table, operand, keepUnmatched, others);
        return select(table, others, result, keepUnmatched, distinct, false);
    }
    Column const none;
    NameLookup lookup(table);
    std::size_t const height = table.items();
    std::vector<ColumnView> selected;
    for (std::size_t k = 0; k < operand.indices(); ++k) {
        Str name;
        Status const readable = operand.get(k, 0).get(name, 0);
        if (!readable.ok()) {
            return readable;
        }
        Cell const& title = operand.get(k, 0);
        std::size_t const source = lookup.find(soughtName(title, name));
        if (source != Table::npos) {
            Cell const& rename = operand.get(k, 1);
            selected.push_back(table.view(source, height).renamed(rename.empty() ? title : rename));
        } else if (keepUnmatched) {
            selected.push_back(
                ColumnView(none, 1, TableImplementation::sharedEmptyCell()).renamed(title));
        }
    }
    result = distinct ? pickDistinct(selected) : copied(table.name(), selected);
    return Status();
}

} // namespace QX
