#include "failure.h"
#include "numbers.h"
#include "verbs.h"

#include <qx/text.h>

namespace qxtab {

namespace {

char separatorOf(Arguments const& arguments) {
    std::string const separator = arguments.text("separator", "/");
    if (separator.size() != 1) {
        throw Misuse("--separator: a separator is one character");
    }
    return separator.front();
}

Failure nothingAt(Data const& data, std::string const& path, std::string const& reason) {
    return Failure(data.label + " has nothing at '" + path + "': " + reason);
}

// The library takes a path as far as it leads; here it must lead somewhere, so each step is tried.
void checkSteps(Data const& data, std::string const& path, char separator) {
    QX::TblPath rest(text(path), separator);
    bool further = true;
    for (bool first = true; further; first = false) {
        QX::Str name;
        QX::Str remaining;
        std::size_t item = 0;
        further = bytes(rest.currentPath(name, item, true).message(false)) != "final table";
        QX::Status const readable = rest.currentPath(name, item, false);
        if (!readable.ok()) {
            throw nothingAt(data, path, bytes(readable.message(false)));
        }
        if (name.empty()) {
            throw nothingAt(data, path, "a step has no name");
        }
        if (first) {
            columnOf(data, bytes(name));
        }
        if (first && item != QX::Table::npos && item > data.rows()) {
            throw nothingAt(data, path, "the last row is " + std::to_string(data.rows()));
        }
        require(rest.nextPath(remaining));
        rest = QX::TblPath(remaining, separator);
    }
}

// A path to one table shows that table; one to other values lists them.
Data reached(Data const& data, QX::Ptr<QX::Table> const& values) {
    QX::Cell const& only = values->get(0, 1);
    if (values->indices() == 1 && QX::Detail::dataRows(*values) == 1 &&
        only.isA() == QX::Cell::TableCell) {
        return derived(data, QX::valueOr(only, QX::Ptr<QX::Table>()));
    }
    return derived(data, values);
}

Action prepareGet(Arguments const& arguments) {
    std::string const path = arguments.word(0);
    char const separator = separatorOf(arguments);
    return [path, separator](Data const& data, std::vector<Data> const&) -> Outcome {
        checkSteps(data, path, separator);
        QX::Ptr<QX::Table> values;
        require(data.table->XPath(text(path), values, separator));
        if (QX::Detail::dataRows(*values) == 0) {
            throw nothingAt(data, path, "no value is reached");
        }
        return reached(data, values);
    };
}

QX::Cell valueOf(std::string const& value, Data const& data, bool asText) {
    if (value.empty()) {
        return QX::Cell();
    }
    if (!asText && !data.rules.guessTexts && isPlainNumber(value)) {
        return QX::Cell(*numberIn(value));
    }
    return QX::textCell(value);
}

Action prepareSet(Arguments const& arguments) {
    std::string const path = arguments.word(0);
    std::string const value = arguments.word(1);
    char const separator = separatorOf(arguments);
    bool const create = arguments.has("create");
    bool const asText = arguments.has("text");
    return [=](Data const& data, std::vector<Data> const&) -> Outcome {
        if (!create) {
            checkSteps(data, path, separator);
        }
        QX::Ptr<QX::Table> const changed = data.table->clone();
        try {
            changed->atXPath(text(path), create, separator) = valueOf(value, data, asText);
        } catch (QX::Except const& e) {
            throw nothingAt(data, path, bytes(e.report().message(false)));
        } catch (std::length_error const&) {
            throw nothingAt(data, path, "the row is beyond any memory");
        }
        return derived(data, changed);
    };
}

Action prepareAttributes(Arguments const&) {
    return [](Data const& data, std::vector<Data> const&) -> Outcome {
        return derived(data, data.table->getAttributes());
    };
}

Option const separatorOption = {"separator", "CHAR", "What separates the steps of the path (/)"};

} // namespace

Verb const getVerb = {
    "get",
    "Write the values that a path reaches",
    {{separatorOption}, {"PATH"}, true},
    "A path is the name of a column, which reaches all its values, or a name with a row, which reaches "
    "one:\n"
    "price[2]. Row 0 is the name. In nested tables, as in JSON, further steps follow behind a "
    "separator:\n"
    "/orders[3]/items/price. A path that reaches nothing is an error.",
    "qxtab get orders.json '/items/price[1]'",
    prepareGet,
    false,
    "values",
};

Verb const setVerb = {
    "set",
    "Put a value where a path leads",
    {{separatorOption,
      {"create", nullptr, "Add the columns, rows and tables that the path needs"},
      {"text", nullptr, "Keep a number as a text, in JSON"}},
     {"PATH", "VALUE"},
     true},
    "A name without a row stands for row 1. An empty value empties the field.",
    "qxtab set orders.json '/customer/name' 'Ann' --as json",
    prepareSet,
};

Verb const attributesVerb = {
    "attributes",
    "Show the attributes of the table",
    {},
    "Files of other programs have none; --exact keeps those of JSON that QX has written.",
    "qxtab attributes --exact table.json --as indices",
    prepareAttributes,
};

} // namespace qxtab
