#include "aggregate.h"
#include "failure.h"
#include "journal.h"
#include "list.h"
#include "verbs.h"

#include <cmath>

namespace qxtab {

namespace {

Positions numberColumns(Data const& data) {
    Positions columns = allColumns(data);
    std::erase_if(columns, [&](std::size_t i) { return data.types[i] != ColumnType::Number; });
    return columns;
}

Data totals(Data const& data, Positions const& columns, Aggregate const& aggregate) {
    RowGroups const all = oneGroup(data);
    QX::Ptr<QX::Table> const made(new QX::Table(QX::Str(aggregate.name)));
    for (std::size_t const column : columns) {
        addColumn(*made, data.name(column), aggregate.compute(data, column, all));
    }
    return derived(data, made);
}

// "sum", "mean" and the like are one verb for each aggregate.
template <char const* Name>
Action prepareTotals(Arguments const& arguments) {
    std::vector<std::string> const names = arguments.names("columns");
    return [names](Data const& data, std::vector<Data> const&) -> Outcome {
        Positions const columns = names.empty() ? numberColumns(data) : columnsOf(data, names);
        return totals(data, columns, aggregateNamed(Name));
    };
}

constexpr char sumName[] = "sum";
constexpr char meanName[] = "mean";
constexpr char minName[] = "min";
constexpr char maxName[] = "max";

Option const columnsOption = {"columns", "LIST", "These columns, rather than each of numbers", 'c'};

void checkShape(Data const& left, Data const& right) {
    auto const check = [&](std::size_t a, std::size_t b, char const* what) {
        if (a != b) {
            throw Failure(left.label + " and " + right.label + " need the same number of " + what +
                          ", and have " + std::to_string(a) + " and " + std::to_string(b));
        }
    };
    check(left.columns(), right.columns(), "columns");
    check(left.rows(), right.rows(), "data rows");
    for (std::size_t i = 0; i < left.columns(); ++i) {
        if (left.name(i) != right.name(i)) {
            tell("column " + std::to_string(i + 1) + " is \"" + left.name(i) + "\" in " + left.label +
                 " and \"" + right.name(i) + "\" in " + right.label);
        }
    }
}

// Positions count here, not names. A number that meets no other one stays, and is told.
Data combined(Data const& left, Data const& right, double sign) {
    checkShape(left, right);
    std::size_t const rows = left.rows();
    std::size_t singles = 0;
    QX::Ptr<QX::Table> const made(new QX::Table(left.table->name()));
    for (std::size_t i = 0; i < left.columns(); ++i) {
        bool const numbers = left.types[i] == ColumnType::Number && right.types[i] == ColumnType::Number;
        std::vector<QX::Cell> cells{left.cell(i, 0)};
        cells.reserve(rows + 1);
        for (std::size_t j = 1; j <= rows; ++j) {
            std::optional<double> const a = numbers ? numberOf(left.cell(i, j)) : std::nullopt;
            std::optional<double> const b = numbers ? numberOf(right.cell(i, j)) : std::nullopt;
            singles += a.has_value() != b.has_value() ? 1 : 0;
            cells.push_back(a && b ? QX::Cell(*a + sign * *b) : left.cell(i, j));
        }
        QX::addIndex(*made, std::move(cells));
    }
    if (singles != 0) {
        tell("fields that are a number in only one of " + left.label + " and " + right.label +
             ", and stay as in the first: " + std::to_string(singles));
    }
    return derived(left, made, left.types);
}

Action prepareAdd(Arguments const&) {
    return [](Data const& data, std::vector<Data> const& others) -> Outcome {
        return combined(data, others.front(), 1);
    };
}

Action prepareSubtract(Arguments const&) {
    return [](Data const& data, std::vector<Data> const& others) -> Outcome {
        return combined(data, others.front(), -1);
    };
}

char const* const combineHelp = "Fields are paired by position. Where both columns are of numbers and "
                                "both fields are there, the result\n"
                                "holds the sum or difference, elsewhere the first file's field. Both "
                                "files must have as many columns\n"
                                "and rows. Names that differ are told, and numbers in one file only.";

} // namespace

Verb const sumVerb = {"sum",
                      "Sum each column of numbers",
                      {{columnsOption}, {}},
                      "",
                      "qxtab sum --columns price,amount sales.csv",
                      prepareTotals<sumName>};
Verb const meanVerb = {"mean",
                       "Give the mean of each column of numbers",
                       {{columnsOption}, {}},
                       "",
                       "qxtab mean sales.csv",
                       prepareTotals<meanName>};
Verb const minVerb = {"min",
                      "Give the smallest value of each column of numbers",
                      {{columnsOption}, {}},
                      "",
                      "qxtab min --columns date sales.csv",
                      prepareTotals<minName>};
Verb const maxVerb = {"max",
                      "Give the largest value of each column of numbers",
                      {{columnsOption}, {}},
                      "",
                      "qxtab max --columns date sales.csv",
                      prepareTotals<maxName>};

Verb const addVerb = {"add",
                      "Add the numbers of two files field by field",
                      {{}, {}, false, 1, 1},
                      combineHelp,
                      "qxtab add 2022.csv 2023.csv",
                      prepareAdd};
Verb const subtractVerb = {"subtract",
                           "Subtract the numbers of the second file from those of the first",
                           {{}, {}, false, 1, 1},
                           combineHelp,
                           "qxtab subtract 2023.csv 2022.csv",
                           prepareSubtract};

} // namespace qxtab
