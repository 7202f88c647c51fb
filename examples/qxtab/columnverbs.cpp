#include "failure.h"
#include "keys.h"
#include "list.h"
#include "verbs.h"

#include <algorithm>

namespace qxtab {

namespace {

std::vector<std::string> namesIn(std::vector<ListEntry> const& entries) {
    std::vector<std::string> names;
    names.reserve(entries.size());
    for (ListEntry const& entry : entries) {
        names.push_back(entry.name);
    }
    return names;
}

Positions othersThan(Data const& data, Positions const& columns) {
    std::vector<bool> named(data.columns());
    for (std::size_t const column : columns) {
        named[column] = true;
    }
    Positions others = allColumns(data);
    std::erase_if(others, [&](std::size_t column) { return named[column]; });
    return others;
}

Data distinctRows(Data const& data) {
    return pickRows(data, groupsOf(data, allColumns(data)).firsts);
}

void checkOnce(Positions columns) {
    std::sort(columns.begin(), columns.end());
    if (std::adjacent_find(columns.begin(), columns.end()) != columns.end()) {
        throw Failure("a column is named twice");
    }
}

// The columns of the list; those that the table lacks have no fields.
Data withUnmatched(Data const& data, std::vector<ListEntry> const& entries) {
    std::vector<std::string> const all = namesOf(data);
    std::size_t const rows = data.rows();
    QX::Ptr<QX::Table> const made(new QX::Table(data.table->name()));
    for (ListEntry const& entry : entries) {
        bool const there = std::find(all.begin(), all.end(), entry.name) != all.end();
        std::size_t const column = there ? columnOf(data, entry.name) : QX::Table::npos;
        QX::addIndex(*made, nameCell(entry.value.value_or(entry.name)), *data.table, column,
                     there ? allRows(data) : Positions(rows, QX::Table::npos));
    }
    return derived(data, made);
}

// The columns in another order, row by row in place.
Data permuted(Data const& data, Positions const& order) {
    checkOnce(order);
    QX::Ptr<QX::Table> const changed = takenTable(data);
    std::size_t const rows = data.rows();
    std::vector<QX::Cell> row(order.size());
    std::vector<ColumnType> types;
    for (std::size_t const column : order) {
        types.push_back(data.types[column]);
    }
    for (std::size_t j = 0; j <= rows; ++j) {
        for (std::size_t k = 0; k < order.size(); ++k) {
            row[k] = std::move(changed->at(order[k], j));
        }
        for (std::size_t k = 0; k < order.size(); ++k) {
            changed->at(k, j) = std::move(row[k]);
        }
    }
    return derived(data, changed, types);
}

Action prepareSelect(Arguments const& arguments) {
    std::vector<ListEntry> const entries = readList(arguments.text("columns"), ListValues::May);
    bool const invert = arguments.has("invert");
    bool const distinct = arguments.has("distinct");
    bool const keep = arguments.has("keep-unmatched");
    return [=](Data const& data, std::vector<Data> const&) -> Outcome {
        if (keep && !invert) {
            Data const picked = withUnmatched(data, entries);
            return distinct ? distinctRows(picked) : picked;
        }
        std::vector<std::string> names;
        names.reserve(entries.size());
        for (ListEntry const& entry : entries) {
            names.push_back(entry.value.value_or(""));
        }
        Positions const columns = columnsOf(data, namesIn(entries));
        Data const picked =
            invert ? pickColumns(data, othersThan(data, columns)) : pickColumns(data, columns, names);
        return distinct ? distinctRows(picked) : picked;
    };
}

Action prepareDrop(Arguments const& arguments) {
    std::vector<std::string> const names = arguments.names("columns");
    return [names](Data const& data, std::vector<Data> const&) -> Outcome {
        return pickColumns(data, othersThan(data, columnsOf(data, names)));
    };
}

Action prepareRename(Arguments const& arguments) {
    std::vector<ListEntry> const entries = readList(arguments.text("columns"), ListValues::Must);
    return [entries](Data const& data, std::vector<Data> const&) -> Outcome {
        Positions const columns = columnsOf(data, namesIn(entries));
        std::vector<std::string> names(data.columns());
        for (std::size_t k = 0; k < entries.size(); ++k) {
            names[columns[k]] = *entries[k].value;
        }
        QX::Ptr<QX::Table> const changed = takenTable(data);
        for (std::size_t i = 0; i < names.size(); ++i) {
            changed->at(i, 0) = names[i].empty() ? changed->at(i, 0) : nameCell(names[i]);
        }
        return derived(data, changed, data.types);
    };
}

Action prepareReorder(Arguments const& arguments) {
    std::vector<std::string> const first = arguments.names("first");
    std::vector<std::string> const last = arguments.names("last");
    if (first.empty() && last.empty()) {
        throw Misuse("--first or --last is missing");
    }
    return [first, last](Data const& data, std::vector<Data> const&) -> Outcome {
        Positions order = columnsOf(data, first);
        Positions const end = columnsOf(data, last);
        Positions named = order;
        named.insert(named.end(), end.begin(), end.end());
        Positions const between = othersThan(data, named);
        order.insert(order.end(), between.begin(), between.end());
        order.insert(order.end(), end.begin(), end.end());
        return permuted(data, order);
    };
}

} // namespace

Verb const selectVerb = {
    "select",
    "Pick columns, in the order of the list",
    {{{"columns", "LIST", "The columns, with new names where wanted: a,b=new", 'c', true},
      {"invert", nullptr, "Pick the columns that the list does not name"},
      {"distinct", nullptr, "Drop rows that repeat an earlier one"},
      {"keep-unmatched", nullptr, "Give an empty column for a name that the file lacks"}},
     {}},
    "With --invert the columns stay in the file's order, and new names are not read.",
    "qxtab select --columns price,name=product prices.csv",
    prepareSelect,
    true,
};

Verb const dropVerb = {
    "drop",
    "Leave out columns",
    {{{"columns", "LIST", "The columns", 'c', true}}, {}},
    "",
    "qxtab drop --columns id,date prices.csv",
    prepareDrop,
    true,
};

Verb const renameVerb = {
    "rename",
    "Give columns other names",
    {{{"columns", "LIST", "The columns and their new names: a=new,b=other", 'c', true}}, {}},
    "",
    "qxtab rename --columns price=euros prices.csv",
    prepareRename,
    true,
};

Verb const reorderVerb = {
    "reorder",
    "Put columns to the front or to the end",
    {{{"first", "LIST", "Those that come first"}, {"last", "LIST", "Those that come last"}}, {}},
    "",
    "qxtab reorder --first name,price --last id prices.csv",
    prepareReorder,
    true,
};

} // namespace qxtab
