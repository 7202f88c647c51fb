#include "aggregate.h"
#include "numbers.h"
#include "utf8.h"
#include "verbs.h"

#include <qx/text.h>

#include <algorithm>

namespace qxtab {

namespace {

/// What is odd about the fields of a column: how many of a kind there are, and the first.
struct Oddity {
    char const* what;
    bool (*applies)(std::string_view text, ColumnType type);
    std::size_t count = 0;
    std::size_t firstRow = 0;
};

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

bool isCode(std::string_view text) {
    return numberIn(text).has_value() && !isPlainNumber(text);
}

std::vector<Oddity> oddities() {
    return {
        {"not UTF-8", [](std::string_view text, ColumnType) { return !isUtf8(text); }},
        {"blanks at an end", [](std::string_view text,
                                ColumnType) { return isBlank(text.front()) || isBlank(text.back()); }},
        {"control characters",
         [](std::string_view text, ColumnType) {
             return std::any_of(text.begin(), text.end(), [](char c) {
                 return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
             });
         }},
        {"digits that are kept as text (007, +49, 1E5, more than 15)",
         [](std::string_view text, ColumnType type) {
             return type == ColumnType::Text && isCode(text);
         }},
        {"numbers in a column of text",
         [](std::string_view text, ColumnType type) {
             return type == ColumnType::Text && isPlainNumber(text);
         }},
        {"no numbers in a column of numbers",
         [](std::string_view text, ColumnType type) {
             return type == ColumnType::Number && !numberIn(text).has_value();
         }},
        {"formulas for spreadsheet programs",
         [](std::string_view text, ColumnType type) {
             return type == ColumnType::Text &&
                    std::string_view("=+-@").find(text.front()) != std::string_view::npos &&
                    !numberIn(text).has_value();
         }},
    };
}

std::string oddText(Data const& data, std::size_t column, std::size_t rows) {
    std::vector<Oddity> all = oddities();
    std::string buffer;
    for (std::size_t j = 1; j <= rows; ++j) {
        std::string_view const text = textOf(data.cell(column, j), buffer);
        for (Oddity& each : all) {
            if (!text.empty() && each.applies(text, data.types[column])) {
                each.firstRow = each.count++ == 0 ? j : each.firstRow;
            }
        }
    }
    std::string odd;
    for (Oddity const& each : all) {
        if (each.count != 0) {
            odd += (odd.empty() ? "" : "; ") + std::to_string(each.count) + " " + each.what +
                   ", first in row " + std::to_string(each.firstRow);
        }
    }
    return odd;
}

QX::Cell countOf(std::size_t count) {
    return QX::Cell(static_cast<double>(count));
}

std::vector<QX::Cell> described(Data const& data, std::size_t column, std::size_t rows,
                                RowGroups const& all) {
    auto const value = [&](char const* name) {
        return aggregateNamed(name).compute(data, column, all).front();
    };
    std::size_t empty = 0;
    for (std::size_t j = 1; j <= rows; ++j) {
        empty += data.cell(column, j).empty() ? 1 : 0;
    }
    bool const numbers = data.types[column] == ColumnType::Number;
    return {QX::textCell(data.name(column)),
            QX::textCell(typeName(data.types[column])),
            countOf(rows - empty),
            countOf(empty),
            value("distinct"),
            value("min"),
            value("max"),
            numbers ? value("mean") : QX::Cell(),
            QX::textCell(oddText(data, column, rows))};
}

Action prepareDescribe(Arguments const& arguments) {
    std::vector<std::string> const names = arguments.names("columns");
    return [names](Data const& data, std::vector<Data> const&) -> Outcome {
        char const* const headings[] = {"column",   "type",    "filled", "empty", "distinct",
                                        "smallest", "largest", "mean",   "odd"};
        std::vector<std::vector<QX::Cell>> columns(std::size(headings));
        RowGroups const all = oneGroup(data);
        std::size_t const rows = data.rows();
        for (std::size_t const column : names.empty() ? allColumns(data) : columnsOf(data, names)) {
            std::vector<QX::Cell> const cells = described(data, column, rows, all);
            for (std::size_t k = 0; k < cells.size(); ++k) {
                columns[k].push_back(cells[k]);
            }
        }
        QX::Ptr<QX::Table> const made(new QX::Table(data.table->name()));
        for (std::size_t k = 0; k < columns.size(); ++k) {
            addColumn(*made, headings[k], std::move(columns[k]));
        }
        return withTypes(made, {}, data.label);
    };
}

} // namespace

Verb const describeVerb = {
    "describe",
    "Tell about each column: type, counts, range and what is odd",
    {{{"columns", "LIST", "These columns only", 'c'}}, {}},
    "The type says how fields are compared, sorted and grouped: --types sets another.",
    "qxtab describe prices.csv",
    prepareDescribe,
};

} // namespace qxtab
