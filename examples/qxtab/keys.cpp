#include "keys.h"

#include "failure.h"
#include "numbers.h"

#include <qx/text.h>

namespace qxtab {

namespace {

QX::Cell keyCell(QX::Cell const& cell, ColumnType type) {
    if (type == ColumnType::Number && cell.isA() == QX::Cell::StringCell) {
        std::optional<double> const number = numberIn(QX::textIn(cell));
        return number ? QX::Cell(*number) : cell;
    }
    if (type != ColumnType::Number && cell.isA() == QX::Cell::NumericCell) {
        return cell.empty() ? QX::Cell() : QX::textCell(textOf(cell));
    }
    return cell;
}

bool holdsOther(Data const& data, std::size_t column, std::size_t rows, ColumnType type) {
    QX::Cell::CellType const kind =
        type == ColumnType::Number ? QX::Cell::StringCell : QX::Cell::NumericCell;
    for (std::size_t j = 1; j <= rows; ++j) {
        if (data.cell(column, j).isA() == kind) {
            return true;
        }
    }
    return false;
}

Keys keysAs(Data const& data, Positions const& columns, std::vector<ColumnType> const& types) {
    std::size_t const rows = data.rows();
    bool asIs = true;
    for (std::size_t k = 0; k < columns.size() && asIs; ++k) {
        asIs = !holdsOther(data, columns[k], rows, types[k]);
    }
    if (asIs) {
        return {data.table, columns};
    }
    QX::Ptr<QX::Table> const made(new QX::Table(data.table->name()));
    Positions places;
    for (std::size_t k = 0; k < columns.size(); ++k) {
        std::vector<QX::Cell> cells{data.cell(columns[k], 0)};
        cells.reserve(rows + 1);
        for (std::size_t j = 1; j <= rows; ++j) {
            cells.push_back(keyCell(data.cell(columns[k], j), types[k]));
        }
        QX::addIndex(*made, std::move(cells));
        places.push_back(k);
    }
    return {made, places};
}

std::vector<ColumnType> typesOf(Data const& data, Positions const& columns) {
    std::vector<ColumnType> types;
    for (std::size_t const column : columns) {
        types.push_back(data.types[column]);
    }
    return types;
}

} // namespace

Keys keysOf(Data const& data, Positions const& columns) {
    return keysAs(data, columns, typesOf(data, columns));
}

KeyPair keysOf(Data const& left, Positions const& leftColumns, Data const& right,
               Positions const& rightColumns) {
    std::vector<ColumnType> types = typesOf(left, leftColumns);
    std::vector<ColumnType> const others = typesOf(right, rightColumns);
    for (std::size_t k = 0; k < types.size(); ++k) {
        bool const numbers = types[k] == ColumnType::Number && others[k] == ColumnType::Number;
        types[k] = numbers ? ColumnType::Number : ColumnType::Text;
    }
    return {keysAs(left, leftColumns, types), keysAs(right, rightColumns, types)};
}

RowGroups groupsOf(Data const& data, Positions const& columns) {
    Keys const keys = keysOf(data, columns);
    RowGroups groups;
    groups.of = QX::groupRows(*keys.table, keys.columns);
    for (std::size_t j = 1; j < groups.of.size(); ++j) {
        std::size_t const first = groups.of[j];
        if (first == j) {
            groups.firsts.push_back(j);
        }
        groups.of[j] = first == j ? groups.firsts.size() - 1 : groups.of[first];
    }
    return groups;
}

} // namespace qxtab
