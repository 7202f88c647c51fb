#include "celltext.h"
#include "failure.h"
#include "writer.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdint>
#include <ostream>
#include <set>

namespace qxtab {

namespace {

using Json = nlohmann::ordered_json;

std::vector<std::string> keys(QX::Table const& table) {
    std::set<std::string> taken;
    std::vector<std::string> result;
    for (std::size_t i = 0; i < table.indices(); ++i) {
        std::string const name = plainText(table.get(i, 0));
        std::string const base = name.empty() ? "column " + std::to_string(i + 1) : name;
        std::string key = base;
        for (int n = 2; !taken.insert(key).second; ++n) {
            key = base + " (" + std::to_string(n) + ")";
        }
        result.push_back(key);
    }
    return result;
}

Json numberValue(QX::Cell const& cell) {
    QX::AnalyticDouble number;
    require(cell.get(number));
    if (!number.isValid() || !std::isfinite(number.get())) {
        return nullptr;
    }
    double const exactIntegers = 9007199254740992.0; // 2 to the 53rd
    if (number.get() == std::trunc(number.get()) && std::fabs(number.get()) < exactIntegers) {
        return static_cast<std::int64_t>(number.get()); // 5 rather than 5.0
    }
    return number.get();
}

Json rowValue(QX::Table const& table, std::vector<std::string> const& names, std::size_t row);

Json tableValue(QX::Cell const& cell) {
    QX::Ptr<QX::Table const> table;
    require(cell.get(table));
    std::vector<std::string> const names = keys(*table);
    Json rows = Json::array();
    std::size_t const last = dataRows(*table);
    for (std::size_t j = 1; j <= last; ++j) {
        rows.push_back(rowValue(*table, names, j));
    }
    return rows;
}

Json cellValue(QX::Cell const& cell) {
    switch (cell.isA()) {
    case QX::Cell::EmptyCell:
        return nullptr;
    case QX::Cell::NumericCell:
        return numberValue(cell);
    case QX::Cell::TableCell:
        return tableValue(cell);
    case QX::Cell::StringCell:
    case QX::Cell::ErrorCell:
        break;
    }
    return plainText(cell);
}

Json rowValue(QX::Table const& table, std::vector<std::string> const& names, std::size_t row) {
    Json object = Json::object();
    auto& members = object.get_ref<Json::object_t&>();
    for (std::size_t i = 0; i < names.size(); ++i) {
        members.emplace_back(names[i],
                             cellValue(table.get(i, row))); // the names differ: no search for them
    }
    return object;
}

std::string rowText(QX::Table const& table, std::vector<std::string> const& names, std::size_t row) {
    try {
        return rowValue(table, names, row).dump();
    } catch (Json::type_error const&) {
        throw Failure("data row " + std::to_string(row) +
                      " can't be written as JSON: its text is not UTF-8");
    }
}

} // namespace

void writeJson(std::ostream& os, QX::Table const& table) {
    std::vector<std::string> const names = keys(table);
    std::size_t const last = dataRows(table);
    os << '[';
    for (std::size_t j = 1; j <= last && os; ++j) {
        os << (j == 1 ? "\n  " : ",\n  ") << rowText(table, names, j);
    }
    os << (last == 0 ? "]\n" : "\n]\n");
}

} // namespace qxtab
