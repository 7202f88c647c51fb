#include "evaluate.h"
#include "failure.h"
#include "journal.h"
#include "list.h"
#include "verbs.h"

#include <qx/text.h>

#include <algorithm>
#include <memory>

namespace qxtab {

namespace {

// Replaces a column, or adds one.
Data withColumn(Data const& data, std::string const& name, std::vector<QX::Cell>&& cells) {
    std::vector<std::string> const names = namesOf(data);
    auto const place =
        static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
    QX::Ptr<QX::Table> const changed = takenTable(data);
    if (place == names.size()) {
        addColumn(*changed, name, std::move(cells));
    } else {
        for (std::size_t k = 0; k < cells.size(); ++k) {
            changed->at(place, k + 1) = std::move(cells[k]);
        }
    }
    std::vector<ColumnType> types = data.types;
    types.resize(changed->indices());
    types[place] = typeOf(data.rules, *changed, place);
    return derived(data, changed, types);
}

Data computed(Data const& data, Assignment const& assignment) {
    std::size_t const rows = data.rows();
    std::vector<QX::Cell> cells;
    cells.reserve(rows + 1);
    Evaluator evaluator(assignment.value, data);
    for (std::size_t j = 1; j <= rows; ++j) {
        cells.push_back(evaluator.cellAt(j));
    }
    if (evaluator.misfits() != 0) {
        tell("compute: fields that were taken for numbers and are none, so that '" + assignment.column +
             "' may be empty: " + std::to_string(evaluator.misfits()) + ", first " +
             evaluator.firstMisfit());
    }
    return withColumn(data, assignment.column, std::move(cells));
}

Action prepareCompute(Arguments const& arguments) {
    auto const assignments =
        std::make_shared<std::vector<Assignment> const>(readAssignments(arguments.word(0)));
    return [assignments](Data const& data, std::vector<Data> const&) -> Outcome {
        Data result = data;
        for (Assignment const& each : *assignments) {
            result = computed(result, each);
        }
        return result;
    };
}

QX::Cell valueCell(std::string const& value) {
    return value.empty() ? QX::Cell() : QX::textCell(value);
}

Data filled(Data const& data, ListEntry const& entry, bool emptyOnly, std::size_t rows) {
    std::vector<std::string> const names = namesOf(data);
    auto const column =
        static_cast<std::size_t>(std::find(names.begin(), names.end(), entry.name) - names.begin());
    if (emptyOnly) {
        columnOf(data, entry.name); // which must be there
    }
    QX::Cell const value = valueCell(*entry.value);
    std::vector<QX::Cell> cells;
    for (std::size_t j = 1; j <= std::max(rows, data.rows()); ++j) {
        bool const kept = emptyOnly && !data.cell(column, j).empty();
        cells.push_back(kept ? data.cell(column, j) : value);
    }
    return withColumn(data, entry.name, std::move(cells));
}

Data filledDown(Data const& data, std::string const& name) {
    std::size_t const column = columnOf(data, name);
    std::size_t const rows = data.rows();
    std::vector<QX::Cell> cells;
    for (std::size_t j = 1; j <= rows; ++j) {
        bool const empty = data.cell(column, j).empty() && !cells.empty();
        cells.push_back(empty ? cells.back() : data.cell(column, j));
    }
    return withColumn(data, name, std::move(cells));
}

Action prepareFill(Arguments const& arguments) {
    std::vector<ListEntry> const values = arguments.has("values")
                                              ? readList(arguments.text("values"), ListValues::Must)
                                              : std::vector<ListEntry>();
    std::vector<std::string> const down = arguments.names("down");
    bool const emptyOnly = arguments.has("empty");
    std::size_t const rows = arguments.count("rows").value_or(0);
    std::size_t const mostRows = 100'000'000;
    if (values.empty() && down.empty()) {
        throw Misuse("--values or --down is missing");
    }
    if (rows > mostRows) {
        throw Misuse("--rows: no more than " + std::to_string(mostRows));
    }
    return [=](Data const& data, std::vector<Data> const&) -> Outcome {
        Data result = data;
        for (ListEntry const& entry : values) {
            result = filled(result, entry, emptyOnly, rows);
        }
        for (std::string const& name : down) {
            result = filledDown(result, name);
        }
        return result;
    };
}

} // namespace

Verb const computeVerb = {
    "compute",
    "Add columns that are computed, or replace columns",
    {{}, {"ASSIGNMENTS"}},
    "Several assignments stand one after another, with ; between them, and see each other's columns. A\n"
    "field that is needed as a number and is none leaves the result empty, and is told. 'qxtab help\n"
    "expressions' has more.",
    R"(qxtab compute 'total = price * amount; large = if(total > 100, "yes", "no")' sales.csv)",
    prepareCompute,
    true,
};

Verb const fillVerb = {
    "fill",
    "Fill whole columns, or empty fields only",
    {{{"values", "LIST", "The columns and their values: a=0,b=x; one that is not there is added"},
      {"empty", nullptr, "Fill empty fields only"},
      {"down", "LIST", "Fill the empty fields of these columns with the field above"},
      {"rows", "N", "Fill at least so many rows"}},
     {}},
    "",
    "qxtab fill --values price=0 --empty prices.csv",
    prepareFill,
};

} // namespace qxtab
