#include "commands.h"
#include "failure.h"
#include "names.h"
#include "writer.h"

#include <CLI/CLI.hpp>

namespace qxtab {

namespace {

std::string checkSeparator(std::string const& text) {
    return text.size() == 1 ? "" : "a separator is one character";
}

void addGetOptions(CLI::App& app, Options& options) {
    app.add_option("path", options.path, "Where the values are: price, or price[2]")
        ->required()
        ->type_name("PATH");
    app.add_option("--separator", options.separator, "What separates the steps of the path")
        ->check(CLI::Validator(checkSeparator, "CHAR"))
        ->capture_default_str();
}

Failure nothingAt(Input const& input, std::string const& path, std::string const& reason) {
    return Failure(input.file + " has nothing at \"" + path + "\": " + reason);
}

// The library takes a path as far as it leads; here it must lead somewhere, so each step is tried.
void checkSteps(Input const& input, std::string const& path, char separator) {
    QX::TblPath rest(QX::Str(path), separator);
    bool further = true;
    for (bool first = true; further; first = false) {
        QX::Str name;
        QX::Str text;
        std::size_t item = 0;
        further = bytes(rest.currentPath(name, item, true).message(false)) != "final table";
        QX::Status const readable = rest.currentPath(name, item, false);
        if (!readable.ok()) {
            throw nothingAt(input, path, bytes(readable.message(false)));
        }
        if (name.size() == 0) {
            throw nothingAt(input, path, "a step has no name");
        }
        if (first && !hasIndex(*input.table, bytes(name))) {
            throw Failure(missing(input, bytes(name)));
        }
        std::size_t const last = dataRows(*input.table);
        if (first && item != QX::Table::npos && item > last) {
            throw nothingAt(input, path, "the last item is " + std::to_string(last));
        }
        require(rest.nextPath(text));
        rest = QX::TblPath(text, separator);
    }
}

Outcome get(Options const& options, Inputs const& inputs) {
    Input const& input = inputs.front();
    char const separator = options.separator.front();
    checkSteps(input, options.path, separator);
    QX::Ptr<QX::Table> values;
    require(input.table->XPath(QX::Str(options.path), values, separator));
    if (dataRows(*values) == 0) {
        throw nothingAt(input, options.path, "no value is reached");
    }
    return {values};
}

} // namespace

Command const getCommand = {
    "get",
    "Print the values that a path reaches",
    "A path is the name of an index, which reaches all its values, or a name with an item\n"
    "number, which reaches one: price[2]. Item 0 is the name. In nested tables further steps\n"
    "follow behind a separator. A path that reaches nothing is an error.",
    1,
    1,
    addGetOptions,
    get,
    1,
    "values",
};

} // namespace qxtab
