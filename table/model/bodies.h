#pragma once

#include "cell/nested.h"
#include "table/model/tableimpl.h"

namespace QX {

/// The one door from a table to its bodies.
class TableBodies {
public:
    static Ptr<TableImplementation>& data(Table& table) { return table.data_; }
    static Ptr<TableImplementation> const& data(Table const& table) { return table.data_; }
    /// Null when there are none or nothing has used them yet.
    static Ptr<TableImplementation> attributes(Table const& table) { return table.attributes_.made(); }
    static void setAttributes(Table& table, Ptr<TableImplementation> const& body) {
        Detail::LateBody(body).swap(table.attributes_);
    }
};

/// The body that stands for that of a table without one.
TableImplementation const& emptyBody();

/// The data body of a table; an empty one when it has none.
inline TableImplementation const& bodyOf(Table const& table) {
    Ptr<TableImplementation> const& data = TableBodies::data(table);
    return data ? *data : emptyBody();
}

/// The data body of a table, shared; when it has none, a new one that it does not get.
inline Ptr<TableImplementation> heldBody(Table const& table) {
    Ptr<TableImplementation> const& data = TableBodies::data(table);
    return data ? data : makeBody(Str());
}

/// The data body of a table that was just made.
inline TableImplementation& madeBody(Ptr<Table> const& table) {
    return *TableBodies::data(*table);
}

/// The data body of the table that a table cell holds.
inline TableImplementation const& nestedBody(Cell const& tableCell) {
    return bodyOf(*nestedIn(tableCell));
}

/// True when the table that a table cell holds may be met elsewhere, too: cell, table or data body has
/// more than one owner.
inline bool isSharedTable(Cell const& tableCell) {
    return ownersOf(tableCell) > 1 || TableBodies::data(*nestedIn(tableCell)).useCount() > 1;
}

/// Raises when `result` refers to a body that the operation reads.
void requireOther(TableImplementation const& body, Ptr<Table> const& result);

} // namespace QX
