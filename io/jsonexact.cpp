#include "io/jsonexact.h"

#include "io/jsonnames.h"
#include "io/numberform.h"
#include "qx/rows.h"
#include "qx/table.h"
#include "qx/text.h"
#include "qx/values.h"

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace QX {

namespace {

bool isText(Cell const& cell) {
    return cell.isA() == Cell::StringCell;
}

int hexDigit(char c) {
    return c >= '0' && c <= '9' ? c - '0' : c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

bool readBytes(std::string_view text, Cell& made) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        int const high = hexDigit(text[i]);
        int const low = hexDigit(text[i + 1]);
        if (high < 0 || low < 0) {
            return false;
        }
        bytes += static_cast<char>(high * 16 + low);
    }
    made = textCell(bytes);
    return text.size() % 2 == 0;
}

bool readCellForm(std::string_view key, Cell const& value, Cell& made) {
    double number = 0;
    bool const finite = value.get(number).ok();
    if (key == ExactKey::undefined && (finite || readAny(textIn(value), number))) {
        AnalyticDouble undefined;
        undefined.value = number;
        made = Cell(undefined);
        return true;
    }
    if (!isText(value)) {
        return false;
    }
    if (key == ExactKey::number && readAny(textIn(value), number) && !std::isfinite(number)) {
        made = Cell(number);
        return true;
    }
    if (key == ExactKey::error) {
        Str message;
        (void)value.get(message, 0);
        made = Cell(Status(message, Status::Error, -1));
        return true;
    }
    return key == ExactKey::bytes && readBytes(textIn(value), made);
}

/// The elements of what was read as an array, all moved out; false for what was not.
bool takeElements(Cell const& array, std::vector<Cell>& elements) {
    Ptr<Table> table;
    if (!array.get(table).ok() || !(table->name() == Str(JsonName::array)) || table->indices() > 1) {
        return false;
    }
    std::size_t const items = table->items(0);
    if (items > 0 && textIn(table->get(0, 0)) != JsonName::elements) {
        return false;
    }
    for (std::size_t j = 1; j < items; ++j) {
        elements.push_back(std::move(table->at(0, j)));
    }
    return true;
}

bool readTableForm(Cell* values, Cell& made) {
    std::vector<Cell> indices;
    Ptr<Table> attributes;
    bool const none = values[1].isA() == Cell::EmptyCell;
    if (!isText(values[0]) || !(none || values[1].get(attributes).ok()) ||
        !takeElements(values[2], indices)) {
        return false;
    }
    Str name;
    (void)values[0].get(name, 0);
    Ptr<Table> const table(new Table(name));
    for (Cell const& index : indices) {
        std::vector<Cell> items;
        if (!takeElements(index, items)) {
            return false;
        }
        addIndex(*table, std::move(items));
    }
    if (!none) {
        table->setAttributes(attributes);
    }
    made = Cell(table);
    return true;
}

} // namespace

bool isExactKey(std::string_view key) {
    return key == ExactKey::table || key == ExactKey::number || key == ExactKey::undefined ||
           key == ExactKey::error || key == ExactKey::bytes;
}

bool readExactForm(Cell const* names, Cell* values, std::size_t members, Cell& made) {
    if (members == 1) {
        return readCellForm(textIn(names[0]), values[0], made);
    }
    return members == 3 && textIn(names[0]) == ExactKey::table &&
           textIn(names[1]) == ExactKey::attributes && textIn(names[2]) == ExactKey::indices &&
           readTableForm(values, made);
}

} // namespace QX
