#include "evaluate.h"
#include "failure.h"
#include "journal.h"
#include "list.h"
#include "numbers.h"
#include "verbs.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>

namespace qxtab {

namespace {

std::size_t const fewRows = 10;

Action prepareShow(Arguments const&) {
    return [](Data const& data, std::vector<Data> const&) -> Outcome { return data; };
}

Action prepareHead(Arguments const& arguments) {
    std::size_t const count = arguments.count("rows").value_or(fewRows);
    return [count](Data const& data, std::vector<Data> const&) -> Outcome {
        Positions rows = allRows(data);
        if (rows.size() <= count) {
            return data;
        }
        rows.resize(count);
        return pickRows(data, rows);
    };
}

Action prepareTail(Arguments const& arguments) {
    std::size_t const count = arguments.count("rows").value_or(fewRows);
    return [count](Data const& data, std::vector<Data> const&) -> Outcome {
        Positions rows = allRows(data);
        std::size_t const dropped = rows.size() - std::min(rows.size(), count);
        rows.erase(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(dropped));
        return pickRows(data, rows);
    };
}

Action prepareSample(Arguments const& arguments) {
    std::size_t const count = arguments.count("rows").value_or(fewRows);
    std::size_t const seed = arguments.count("seed").value_or(std::random_device()());
    return [count, seed](Data const& data, std::vector<Data> const&) -> Outcome {
        Positions const rows = allRows(data);
        Positions picked;
        std::mt19937_64 random(seed);
        std::sample(rows.begin(), rows.end(), std::back_inserter(picked), count, random);
        return pickRows(data, picked);
    };
}

// Whether a cell has one of the values that a condition lists, by the type of the column.
bool hasValue(QX::Cell const& cell, ColumnType type, Condition const& condition, std::string& buffer) {
    return std::any_of(condition.values.begin(), condition.values.end(), [&](std::string const& value) {
        if (value.empty() || cell.empty()) {
            return value.empty() && cell.empty();
        }
        if (type == ColumnType::Number) {
            std::optional<double> const wanted = numberIn(value);
            return wanted && numberOf(cell) == wanted;
        }
        return textOf(cell, buffer) == value;
    });
}

Data filteredByValues(Data const& data, std::vector<Condition> const& conditions, bool exclude) {
    Data rest = data;
    std::string buffer;
    for (Condition const& condition : conditions) {
        std::size_t const column = columnOf(rest, condition.name);
        Positions rows = allRows(rest);
        std::erase_if(rows, [&](std::size_t row) {
            return hasValue(rest.cell(column, row), rest.types[column], condition, buffer) == exclude;
        });
        rest = pickRows(rest, rows);
    }
    return rest;
}

Data filteredByExpression(Data const& data, Expression const& expression, bool exclude) {
    Evaluator evaluator(expression, data);
    Positions rows = allRows(data);
    std::erase_if(rows, [&](std::size_t row) { return evaluator.holds(row) == exclude; });
    if (evaluator.misfits() != 0) {
        tell("filter: fields that were compared or computed with as numbers and are none: " +
             std::to_string(evaluator.misfits()) + ", first " + evaluator.firstMisfit());
    }
    return pickRows(data, rows);
}

Action prepareFilter(Arguments const& arguments) {
    bool const exclude = arguments.has("exclude");
    if (!arguments.hasWords()) {
        std::vector<Condition> conditions;
        for (std::string const& text : arguments.texts("where")) {
            conditions.push_back(readCondition(text));
        }
        return [conditions, exclude](Data const& data, std::vector<Data> const&) -> Outcome {
            return filteredByValues(data, conditions, exclude);
        };
    }
    auto const expression = std::make_shared<Expression const>(readExpression(arguments.word(0)));
    return [expression, exclude](Data const& data, std::vector<Data> const&) -> Outcome {
        return filteredByExpression(data, *expression, exclude);
    };
}

Option const rowsOption = {"rows", "N", "How many rows (10 when not given)", 'n'};

} // namespace

Verb const showVerb = {"show", "Write the table as it is", {}, "", "qxtab show prices.csv", prepareShow,
                       true};

Verb const headVerb = {"head",
                       "Keep the first rows",
                       {{rowsOption}, {}},
                       "Reading stops behind the last row that is needed.",
                       "qxtab head -n 3 prices.csv",
                       prepareHead,
                       true};

Verb const tailVerb = {"tail", "Keep the last rows",         {{rowsOption}, {}},
                       "",     "qxtab tail -n 3 prices.csv", prepareTail};

Verb const sampleVerb = {
    "sample",
    "Keep rows picked at random, in their order",
    {{rowsOption, {"seed", "N", "A number that makes the choice the same each time"}}, {}},
    "",
    "qxtab sample -n 100 --seed 7 prices.csv",
    prepareSample,
};

Verb const filterVerb = {
    "filter",
    "Keep the rows for which an expression is true",
    {{{"where", "NAME=VALUES", "Instead of an expression: rows with one of these values", 0, false,
       true},
      {"exclude", nullptr, "Drop these rows and keep the others", 'x'}},
     {"EXPRESSION"},
     false,
     0,
     0,
     "where"},
    "Beside a number, fields are compared as numbers, and those that are none match nothing but !=.\n"
    "Beside a text in quotes they are compared byte by byte. 'qxtab help expressions' has more. "
    "Several\n"
    "--where must all hold; --where a= finds empty fields.",
    "qxtab filter 'price > 100 and kind != \"x\"' prices.csv",
    prepareFilter,
};

} // namespace qxtab
