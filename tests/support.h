#pragma once

#include "sibling.h"

#include <qx/qx.h>

#include <cstring>
#include <sstream>
#include <string>

namespace QX {

/// The printed form of a cell.
inline std::string printed(Cell const& cell) {
    return written([&](std::ostream& os) { os << cell; });
}

/// The ordinary text of a cell, or the failure in angle brackets.
inline std::string text(Cell const& cell, int precision = 0) {
    Str out;
    Status const status = cell.get(out, precision);
    return status.ok() ? string(out) : "<" + outcome(status) + ">";
}

/// The printed form of a table and of those nested in it.
inline std::string shown(Table const& table, int number = -1) {
    return written([&](std::ostream& os) { table.display(os, number); });
}

/// The message of the Except that `call` raises, "" when it raises none.
template <typename Call>
std::string raised(Call const& call) {
    try {
        call();
    } catch (Except const& except) {
        Report const& report = except.report();
        EXPECT_EQ(string(report.file()), "table\\src\\tableimpl");
        EXPECT_GT(report.line(), 0);
        return outcome(report);
    }
    return "";
}

inline Ptr<Table> nested(Cell const& cell) {
    Ptr<Table> table;
    (void)cell.get(table);
    return table;
}

inline AnalyticDouble number(double value, bool valid = true) {
    AnalyticDouble made;
    made.value = value;
    made.valid = valid;
    return made;
}

/// The cell of a number that is not valid.
inline Cell undefined(double value = 0) {
    return Cell(number(value, false));
}

/// True for the cell that stands in for every position that does not exist.
inline bool isShared(Cell const& cell) {
    return &cell == &Table().get(0, 0);
}

/// The number of items that index i really has.
inline std::size_t length(Table const& table, std::size_t i) {
    std::size_t items = 0;
    while (!isShared(table.get(i, items))) {
        ++items;
    }
    return items;
}

/// The second field of a handle, whose layout callers in other modules rely on.
template <typename T>
PtrRefCount* blockOf(Ptr<T> const& handle) {
    void* fields[2];
    static_assert(sizeof fields == sizeof handle);
    std::memcpy(fields, static_cast<void const*>(&handle), sizeof fields);
    return static_cast<PtrRefCount*>(fields[1]);
}

} // namespace QX
