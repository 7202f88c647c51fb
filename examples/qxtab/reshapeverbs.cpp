#include "failure.h"
#include "keys.h"
#include "list.h"
#include "verbs.h"

#include <qx/text.h>

#include <algorithm>

namespace qxtab {

namespace {

Positions without(Data const& data, Positions const& named) {
    std::vector<bool> isNamed(data.columns());
    for (std::size_t const column : named) {
        isNamed[column] = true;
    }
    Positions others = allColumns(data);
    std::erase_if(others, [&](std::size_t column) { return isNamed[column]; });
    return others;
}

// Each row comes as many times as there are columns to put below each other.
Data madeLong(Data const& data, Positions const& stacked, std::string const& names,
              std::string const& values) {
    std::size_t const rows = data.rows();
    Positions repeated;
    std::vector<QX::Cell> nameCells;
    std::vector<QX::Cell> valueCells;
    std::vector<QX::Cell> stackedNames;
    for (std::size_t const column : stacked) {
        stackedNames.push_back(QX::textCell(data.name(column)));
    }
    for (std::size_t j = 1; j <= rows; ++j) {
        for (std::size_t k = 0; k < stacked.size(); ++k) {
            repeated.push_back(j);
            nameCells.push_back(stackedNames[k]);
            valueCells.push_back(data.cell(stacked[k], j));
        }
    }
    Positions const kept = without(data, stacked);
    QX::Ptr<QX::Table> const made(new QX::Table(data.table->name()));
    for (std::size_t const column : kept) {
        QX::addIndex(*made, data.cell(column, 0), *data.table, column, repeated);
    }
    addColumn(*made, names, std::move(nameCells));
    addColumn(*made, values, std::move(valueCells));
    return derived(data, made);
}

Action prepareLong(Arguments const& arguments) {
    std::vector<std::string> const keep = arguments.names("keep");
    std::vector<std::string> const columns = arguments.names("columns");
    std::string const names = arguments.text("names", "name");
    std::string const values = arguments.text("values", "value");
    if (keep.empty() == columns.empty()) {
        throw Misuse("either --keep or --columns is needed");
    }
    return [=](Data const& data, std::vector<Data> const&) -> Outcome {
        Positions const stacked =
            columns.empty() ? without(data, columnsOf(data, keep)) : columnsOf(data, columns);
        return madeLong(data, stacked, names, values);
    };
}

Data madeWide(Data const& data, std::size_t names, std::size_t values) {
    Positions const kept = without(data, {names, values});
    RowGroups const rows = groupsOf(data, kept);
    RowGroups const columns = groupsOf(data, {names});
    std::size_t const most = 100'000'000;
    std::size_t const fields = rows.firsts.size() * columns.firsts.size();
    if (fields > most && fields / 16 > data.rows()) {
        throw Failure("the table would have " + std::to_string(rows.firsts.size()) + " rows of " +
                      std::to_string(columns.firsts.size()) + " columns, most of them empty");
    }
    std::vector<std::vector<QX::Cell>> cells(columns.firsts.size(),
                                             std::vector<QX::Cell>(rows.firsts.size()));
    std::vector<bool> taken(fields);
    for (std::size_t j = 1; j < rows.of.size(); ++j) {
        std::size_t const place = columns.of[j] * rows.firsts.size() + rows.of[j];
        if (taken[place]) {
            throw Failure("row " + std::to_string(j) + " is the second with '" +
                          textOf(data.cell(names, j)) + "' for the same other fields");
        }
        taken[place] = true;
        cells[columns.of[j]][rows.of[j]] = data.cell(values, j);
    }
    QX::Ptr<QX::Table> const made(new QX::Table(data.table->name()));
    for (std::size_t const column : kept) {
        QX::addIndex(*made, data.cell(column, 0), *data.table, column, rows.firsts);
    }
    for (std::size_t k = 0; k < cells.size(); ++k) {
        addColumn(*made, textOf(data.cell(names, columns.firsts[k])), std::move(cells[k]));
    }
    return derived(data, made);
}

Action prepareWide(Arguments const& arguments) {
    std::string const names = arguments.text("names", "name");
    std::string const values = arguments.text("values", "value");
    return [names, values](Data const& data, std::vector<Data> const&) -> Outcome {
        return madeWide(data, columnOf(data, names), columnOf(data, values));
    };
}

Action prepareTranspose(Arguments const&) {
    return [](Data const& data, std::vector<Data> const&) -> Outcome {
        return derived(data, QX::transposed(data.table));
    };
}

} // namespace

Verb const longVerb = {
    "long",
    "Turn columns into rows: one for each of their fields",
    {{{"keep", "LIST", "The columns that stay; all others become rows"},
      {"columns", "LIST", "The columns that become rows; all others stay"},
      {"names", "NAME", "The column for the names of the columns (name)"},
      {"values", "NAME", "The column for their fields (value)"}},
     {}},
    "",
    "qxtab long --keep city --names year --values people towns.csv",
    prepareLong,
};

Verb const wideVerb = {
    "wide",
    "Turn rows into columns: one for each value in a column of names",
    {{{"names", "NAME", "The column of the names (name)"},
      {"values", "NAME", "The column of the fields (value)"}},
     {}},
    "Rows with equal other fields become one row. Two fields for one place are an error.",
    "qxtab wide --names year --values people towns.csv",
    prepareWide,
};

Verb const transposeVerb = {
    "transpose",
    "Turn columns into rows, and rows into columns",
    {},
    "The names become the first column, and the fields of the first column the names.",
    "qxtab transpose prices.csv",
    prepareTranspose,
};

} // namespace qxtab
