#pragma once

#include "support.h"

#include <cmath>
#include <vector>

namespace QX {

// The brief form of a cell:
//
//     -  ""  nan  -inf        an empty cell, a text without characters, numbers that are no text
//     ?  ?2.5                 numbers that are not valid
//     !boom                   an error
//     {n B 1 }                a nested table named n
//
// Every other word is the cell that Cell(Str const&) makes of it.
//
// The brief form of a table: its indices separated by "|", their items by blanks.
//
//     A 1 2 | B x - {n C 1 }  two indices; the last two items are an empty cell and a nested table

inline Ptr<Table> briefTable(std::istream& in, Str const& name);

inline Cell briefCell(std::istream& in, std::string const& word) {
    if (word == "-") {
        return Cell();
    }
    if (word == "\"\"") {
        return Cell("");
    }
    if (word == "nan" || word == "-nan" || word == "inf" || word == "-inf") {
        return Cell(std::stod(word));
    }
    switch (word.front()) {
    case '?':
        return undefined(word.size() == 1 ? 0 : std::stod(word.substr(1)));
    case '!':
        return Cell(Status(word.substr(1), Status::Error, -1));
    case '{':
        return Cell(briefTable(in, word.substr(1)));
    default:
        return Cell(Str(word));
    }
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
            made->at(i, j++, briefCell(in, word));
        }
    }
    return made;
}

/// Reads the brief form of a cell.
inline std::istream& operator>>(std::istream& in, Cell& cell) {
    if (std::string word; in >> word) {
        cell = briefCell(in, word);
    }
    return in;
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
        (void)cell.get(value);
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
        form += i == 0 ? "" : form.empty() || form.back() == ' ' ? "| " : " | ";
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
