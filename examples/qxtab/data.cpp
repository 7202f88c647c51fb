#include "data.h"

#include "failure.h"
#include "numbers.h"

#include <qx/text.h>

#include <algorithm>
#include <numeric>
#include <sstream>
#include <unordered_map>

namespace qxtab {

namespace {

bool isDate(std::string_view text) {
    std::size_t const length = 10;
    return text.size() == length && QX::Date(qxtab::text(text), QX::Str("")).isValid();
}

bool fits(QX::Cell const& cell, ColumnType type, bool guessTexts) {
    if (cell.isA() == QX::Cell::NumericCell) {
        return type == ColumnType::Number;
    }
    if (cell.isA() != QX::Cell::StringCell) {
        return false;
    }
    return type == ColumnType::Number ? guessTexts && isPlainNumber(QX::textIn(cell))
                                      : isDate(QX::textIn(cell));
}

ColumnType guessed(QX::Table const& table, std::size_t column, std::size_t end, bool guessTexts) {
    std::size_t first = 1;
    while (first < end && table.get(column, first).empty()) {
        ++first;
    }
    for (ColumnType const type : {ColumnType::Number, ColumnType::Date}) {
        std::size_t row = first;
        while (row < end &&
               (table.get(column, row).empty() || fits(table.get(column, row), type, guessTexts))) {
            ++row;
        }
        if (first < end && row == end) {
            return type;
        }
    }
    return ColumnType::Text;
}

ColumnType typeOf(TypeRules const& rules, QX::Table const& table, std::size_t column, std::size_t end) {
    if (!rules.said.empty()) {
        auto const said = rules.said.find(textOf(table.get(column, 0)));
        if (said != rules.said.end()) {
            return said->second;
        }
    }
    return guessed(table, column, end, rules.guessTexts);
}

struct TypeWord {
    char const* word;
    ColumnType type;
};

TypeWord const typeWords[] = {
    {"text", ColumnType::Text}, {"number", ColumnType::Number}, {"date", ColumnType::Date}};

} // namespace

char const* typeName(ColumnType type) {
    return std::find_if(std::begin(typeWords), std::end(typeWords),
                        [type](TypeWord const& each) { return each.type == type; })
        ->word;
}

ColumnType typeNamed(std::string const& name) {
    for (TypeWord const& each : typeWords) {
        if (name == each.word) {
            return each.type;
        }
    }
    throw Misuse("'" + name + "' is not a type: text, number or date");
}

ColumnType typeOf(TypeRules const& rules, QX::Table const& table, std::size_t column) {
    return typeOf(rules, table, column, table.items(0));
}

std::string Data::name(std::size_t column) const {
    return textOf(table->get(column, 0));
}

Data withTypes(Table const& table, TypeRules const& rules, std::string const& label) {
    Data data{table, {}, rules, label, label};
    std::size_t const end = table->items(0);
    for (std::size_t i = 0; i < table->indices(); ++i) {
        data.types.push_back(typeOf(rules, *table, i, end));
    }
    return data;
}

Data derived(Data const& from, Table const& table) {
    Data made = withTypes(table, from.rules, from.label);
    made.title = from.title;
    return made;
}

Data derived(Data const& from, Table const& table, std::vector<ColumnType> const& types) {
    return {table, types, from.rules, from.label, from.title};
}

std::vector<std::string> namesOf(Data const& data) {
    std::vector<std::string> names;
    names.reserve(data.columns());
    for (std::size_t i = 0; i < data.columns(); ++i) {
        names.push_back(data.name(i));
    }
    return names;
}

Positions columnsOf(Data const& data, std::vector<std::string> const& names) {
    std::vector<std::string> const all = namesOf(data);
    std::unordered_map<std::string_view, std::size_t> places;
    for (std::size_t i = 0; i < all.size(); ++i) {
        places.emplace(all[i], i);
    }
    Positions columns;
    for (std::string const& name : names) {
        auto const found = places.find(name);
        if (found == places.end()) {
            throw Failure(data.label + " has no column '" + name + "'" + suggestion(name, all));
        }
        columns.push_back(found->second);
    }
    return columns;
}

std::size_t columnOf(Data const& data, std::string const& name) {
    return columnsOf(data, {name}).front();
}

Positions allColumns(Data const& data) {
    Positions columns(data.columns());
    std::iota(columns.begin(), columns.end(), 0);
    return columns;
}

Positions allRows(Data const& data) {
    Positions rows(data.rows());
    std::iota(rows.begin(), rows.end(), 1);
    return rows;
}

QX::Cell nameCell(std::string_view name) {
    QX::Cell const cell{text(name)};
    return textOf(cell) == name ? cell : QX::textCell(name); // at("2024", 1) finds the number 2024
}

Data pickRows(Data const& data, Positions const& rows) {
    QX::Ptr<QX::Table> const picked(new QX::Table(data.table->name()));
    for (std::size_t i = 0; i < data.columns(); ++i) {
        QX::addIndex(*picked, data.cell(i, 0), *data.table, i, rows);
    }
    return derived(data, picked, data.types);
}

Data pickColumns(Data const& data, Positions const& columns, std::vector<std::string> const& names) {
    QX::Ptr<QX::Table> const picked(new QX::Table(data.table->name()));
    std::vector<ColumnType> types;
    Positions const rows = allRows(data);
    for (std::size_t k = 0; k < columns.size(); ++k) {
        bool const renamed = k < names.size() && !names[k].empty();
        QX::Cell const name = renamed ? nameCell(names[k]) : data.cell(columns[k], 0);
        QX::addIndex(*picked, name, *data.table, columns[k], rows);
        types.push_back(data.types[columns[k]]);
    }
    return derived(data, picked, types);
}

QX::Ptr<QX::Table> takenTable(Data const& data) {
    return QX::Ptr<QX::Table>(new QX::Table(*data.table)); // shares its bodies
}

void addColumn(QX::Table& table, std::string_view name, std::vector<QX::Cell>&& cells) {
    cells.insert(cells.begin(), nameCell(name));
    QX::addIndex(table, std::move(cells));
}

std::optional<double> numberOf(QX::Cell const& cell) {
    if (cell.isA() == QX::Cell::NumericCell) {
        return QX::as<double>(cell);
    }
    return cell.isA() == QX::Cell::StringCell ? numberIn(QX::textIn(cell)) : std::nullopt;
}

std::string_view textOf(QX::Cell const& cell, std::string& buffer) {
    switch (cell.isA()) {
    case QX::Cell::StringCell:
        return QX::textIn(cell);
    case QX::Cell::EmptyCell:
        return {};
    case QX::Cell::TableCell: {
        std::ostringstream printed;
        printed << cell;
        return buffer = printed.str();
    }
    case QX::Cell::NumericCell:
    case QX::Cell::ErrorCell:
        break;
    }
    if (cell.empty()) {
        return {};
    }
    QX::Str shown;
    require(cell.get(shown, 0));
    return buffer = bytes(shown);
}

std::string textOf(QX::Cell const& cell) {
    std::string buffer;
    return std::string(textOf(cell, buffer));
}

} // namespace qxtab
