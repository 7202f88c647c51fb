#pragma once

#include "support.h"

#include <cmath>

namespace QX {

// The brief form of a table, for rows of test cases: its indices separated by "|", their items by blanks.
//
//     A 1 2 | B x - ""        two indices; the last two items are an empty cell and a text without characters
//     A {n B 1 } ?            a nested table named n with one index, and a number that is not valid
//     A nan !boom             a number and an error
//
// Every other word is the cell that Cell(Str const&) makes of it.

inline Cell briefCell(std::string const& word) {
    if (word == "-") {
        return Cell();
    }
    if (word == "\"\"") {
        return Cell(Str(""));
    }
    if (word == "?") {
        return undefined();
    }
    if (word == "nan") {
        return Cell(std::nan(""));
    }
    if (word.front() == '!') {
        return Cell(Status(word.substr(1), Status::Error, -1));
    }
    return Cell(Str(word));
}

inline Ptr<Table> briefTable(std::istream& in, Str const& name) {
    Ptr<Table> made(new Table(name));
    std::size_t i = 0;
    std::size_t j = 0;
    for (std::string word; in >> word && word != "}";) {
        if (word == "|") {
            ++i;
            j = 0;
        } else {
            made->at(i, j++,
                     word.front() == '{' ? Cell(briefTable(in, word.substr(1))) : briefCell(word));
        }
    }
    return made;
}

/// The table of a brief form.
inline Ptr<Table> brief(std::string const& form, Str const& name = "t") {
    std::istringstream in(form);
    return briefTable(in, name);
}

inline std::string brief(Table const& table);

inline std::string brief(Cell const& cell) {
    AnalyticDouble value;
    switch (cell.isA()) {
    case Cell::EmptyCell:
        return "-";
    case Cell::StringCell:
        return text(cell).empty() ? "\"\"" : text(cell);
    case Cell::NumericCell:
        cell.get(value);
        return value.valid ? text(cell) : "?";
    case Cell::TableCell: {
        std::string const cells = brief(*nested(cell));
        return "{" + string(nested(cell)->name()) + (cells.empty() ? "" : " ") + cells + " }";
    }
    case Cell::ErrorCell:
        return "!" + text(cell).substr(std::strlen("#Err: "));
    }
    return "";
}

/// The brief form of a table, without its name.
inline std::string brief(Table const& table) {
    std::string form;
    for (std::size_t i = 0; i < table.indices(); ++i) {
        form += i == 0 ? "" : form.empty() ? "| " : " | ";
        for (std::size_t j = 0; j < length(table, i); ++j) {
            form += (j == 0 ? "" : " ") + brief(table.get(i, j));
        }
    }
    return form;
}

/// The name of a table and its brief form; "null" for a null handle.
inline std::string named(Ptr<Table> const& table) {
    return table ? string(table->name()) + ": " + brief(*table) : "null";
}

} // namespace QX
