#include "io/jsonshape.h"

#include "io/jsonexact.h"
#include "io/jsonmarks.h"
#include "io/jsonnames.h"
#include "io/jsontext.h"
#include "io/namecell.h"
#include "io/numberform.h"
#include "qx/rows.h"
#include "qx/values.h"

#include <cmath>
#include <unordered_map>

namespace QX {

namespace {

bool isNamed(Table const& table, std::string_view name) {
    return std::string_view(table.name().data(), table.name().size()) == name;
}

bool isList(Table const& table) {
    return table.indices() == 1 && textIn(table.get(0, 0)) == JsonName::elements;
}

/// True for a cell that stands for a key as reading would make it.
bool isKey(Cell const& name) {
    if (name.isA() != Cell::StringCell && name.isA() != Cell::NumericCell) {
        return false;
    }
    std::string const text = nameText(name);
    if (isExactKey(text) || !isUtf8(text)) {
        return false;
    }
    Cell const made = nameCell(text);
    return made.isA() == name.isA() && sameValue(made, name);
}

bool isObject(Cell const& cell) {
    Ptr<Table const> table;
    return cell.get(table).ok() && isNamed(*table, JsonName::object);
}

bool readsBackAsObject(Table const& table) {
    for (std::size_t i = 0; i < table.indices(); ++i) {
        if (cellsOf(table, i).count != 2 || !isKey(table.get(i, 0))) {
            return false;
        }
    }
    return isNamed(table, JsonName::object);
}

/// False for elements that are nothing but objects, which reading makes columns of.
bool readsBackAsElements(Table const& table) {
    std::size_t const items = table.items(0);
    bool objects = true;
    for (std::size_t j = 1; j < items; ++j) {
        objects &= isObject(table.get(0, j));
    }
    return items > 1 && !objects;
}

bool readsBackAsRecords(Table const& table) {
    std::size_t const items = table.items(0);
    if (items < 2 || !isNamed(table, JsonName::rows)) {
        return false;
    }
    std::size_t members = 0;
    std::size_t lastFirst = 1;
    std::unordered_map<std::string, bool> keys;
    for (std::size_t i = 0; i < table.indices(); ++i) {
        std::size_t first = 0;
        for (std::size_t j = items - 1; j > 0; --j) {
            bool const there = !isMissing(table.get(i, j));
            first = there ? j : first;
            members += there ? 1 : 0;
        }
        bool const distinct = keys.emplace(nameText(table.get(i, 0)), true).second;
        if (cellsOf(table, i).count != items || !isKey(table.get(i, 0)) || !distinct ||
            first < lastFirst) {
            return false;
        }
        lastFirst = first;
    }
    return table.indices() * (items - 1) <= 8 * members;
}

bool hasAttributes(Table const& table) {
    Ptr<Table const> const attributes = table.getAttributes();
    return attributes->indices() != 0 || attributes->name().size() != 0;
}

} // namespace

bool isMissing(Cell const& cell) {
    double const number = numberIn(cell);
    return cell.isA() == Cell::NumericCell && cell.empty() && number == 0 && !std::signbit(number);
}

JsonForm formOf(Table const& table) {
    if (isNamed(table, JsonName::object) && table.items(0) <= 2) {
        return JsonForm::Object;
    }
    if (isNamed(table, JsonName::array) && isList(table)) {
        return JsonForm::Elements;
    }
    bool const value = isNamed(table, JsonName::root) && isList(table) && table.items(0) == 2;
    return value ? JsonForm::Value : JsonForm::Records;
}

bool readsBack(Table const& table, JsonForm form) {
    if (hasAttributes(table)) {
        return false;
    }
    switch (form) {
    case JsonForm::Object:
        return readsBackAsObject(table);
    case JsonForm::Elements:
        return readsBackAsElements(table);
    case JsonForm::Records:
        return table.indices() == 0 ? isNamed(table, JsonName::array) : readsBackAsRecords(table);
    case JsonForm::Value:
    case JsonForm::Exact:
        break;
    }
    return false;
}

std::string nameText(Cell const& name) {
    double number = 0;
    if (name.isA() == Cell::NumericCell && !name.empty() && name.get(number).ok()) {
        std::string text;
        appendNumber(text, number);
        return text;
    }
    Str text;
    (void)name.get(text, 0);
    return {text.data(), text.size()};
}

std::vector<std::string> recordKeys(Table const& table) {
    std::vector<std::string> keys;
    std::unordered_map<std::string, std::size_t> taken; // with the number that was tried last
    for (std::size_t i = 0; i < table.indices(); ++i) {
        bool const unnamed = table.get(i, 0).isA() == Cell::EmptyCell;
        std::string const base = unnamed ? "column " + std::to_string(i + 1) : nameText(table.get(i, 0));
        std::string key = base;
        std::size_t& tried = taken[base];
        while (tried != 0 &&
               (key = base + " (" + std::to_string(tried + 1) + ")", taken.contains(key))) {
            ++tried;
        }
        ++tried;
        taken.emplace(key, 1);
        keys.push_back(key);
    }
    return keys;
}

} // namespace QX
