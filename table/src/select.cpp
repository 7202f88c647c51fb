#include "table/src/namelookup.h"
#include "table/src/raise.h"
#include "table/src/rowdistinct.h"
#include "table/src/tableimpl.h"

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
    Ptr<Table> const table = makePtr<Table>(distinct ? Str("Distinct") : name_);
    std::vector<Index>& selected = made(table).indices_;
    NameLookup lookup(*this);
    std::size_t const width = items();
    for (std::size_t k = 0; k < operand.indices(); ++k) {
        Str name;
        Status const readable = operand.get(k, 0).get(name, 0);
        if (!readable.ok()) {
            return readable;
        }
        std::size_t const source = lookup.find(Cell(name));
        if (source == npos && !keepUnmatched) {
            continue;
        }
        if (source == npos) {
            selected.emplace_back(1, operand.get(k, 0));
            continue;
        }
        Index& index = selected.emplace_back(padded(indices_[source], width));
        Cell const& rename = operand.get(k, 1);
        index.front() = rename.empty() ? operand.get(k, 0) : rename;
    }
    if (distinct) {
        made(table).keepRows(distinctRows(made(table)));
    }
    result = table;
    return Status();
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
