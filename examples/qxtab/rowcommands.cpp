#include "commands.h"
#include "failure.h"
#include "journal.h"
#include "listoption.h"
#include "names.h"
#include "writer.h"

namespace qxtab {

namespace {

// The library knows that a key was not found, but doesn't say which.
std::string sortFailure(Input const& input, QX::Table const& keys, std::string const& message) {
    for (std::size_t k = 0; k < keys.indices(); ++k) {
        std::string const name = nameText(keys, k);
        if (name.empty() || !hasIndex(*input.table, name)) {
            return input.file + ": " + message + ": " + name;
        }
    }
    return input.file + ": " + message;
}

// Happens where cells of a key are equal without being the same, such as numbers next to each other.
void checkRows(Input const& input, QX::Table const& sorted) {
    std::size_t const before = dataRows(*input.table);
    std::size_t const after = dataRows(sorted);
    if (before != after) {
        tell(input.file + ": " + std::to_string(before) + " rows became " + std::to_string(after) +
             ", since cells of a key are NaN or numbers next to each other");
    }
}

void addSortOptions(CLI::App& app, Options& options) {
    addList(app, "--by", options.operand, readNames, "The keys, the most significant first: a,b")
        ->required();
    app.add_flag("--descending", options.descending, "From the largest value to the smallest");
}

Outcome sort(Options const& options, Inputs const& inputs) {
    Input const& input = inputs.front();
    QX::Ptr<QX::Table> result;
    QX::Status const status = input.table->sort(options.operand, result, !options.descending);
    if (!status.ok()) {
        throw Failure(sortFailure(input, *options.operand, bytes(status.message(false))));
    }
    checkRows(input, *result);
    return {result};
}

void addFilterOptions(CLI::App& app, Options& options) {
    addLists(app, "--where", options.conditions, readCondition,
             "The index to test and the values: a=1,2; may be given more than once")
        ->required();
    app.add_flag("--exclude", options.exclude, "Drop the rows that have one of the values");
    app.add_flag("--keep-empty", options.keepEmpty,
                 "With --exclude, keep rows with an empty cell there");
}

// One condition at a time: in a common operand, those with fewer values would also pick empty cells.
Outcome filter(Options const& options, Inputs const& inputs) {
    Input const& input = inputs.front();
    QX::Ptr<QX::Table const> rows = input.table;
    for (QX::Ptr<QX::Table const> const& condition : options.conditions) {
        tellMissing(input, *condition);
        QX::Ptr<QX::Table> kept;
        require(rows->filter(condition, kept, options.keepEmpty, options.exclude));
        rows = kept;
    }
    return {rows};
}

} // namespace

Command const sortCommand = {
    "sort",
    "List the rows in the order of one or more key indices",
    "Rows that are equal in every key keep their order. Empty cells come before all others,\n"
    "numbers before texts that are no dates. A row is listed once for each value that its\n"
    "key equals, so twice for 0.3 beside 0.30000000000000004; other numbers of rows than\n"
    "before are told. A key that names no index is an error.",
    1,
    1,
    addSortOptions,
    sort,
};

Command const filterCommand = {
    "filter",
    "Pick rows by value",
    "The rows that equal a value are listed value by value, a row that equals two values\n"
    "twice. With --exclude the rows whose text equals that of a value are dropped, and\n"
    "unless --keep-empty those whose text is empty; the others stay in order. Conditions\n"
    "work one after the other, each on what the one before left. One on an index that the\n"
    "file lacks leaves no row, or with --exclude every row, and is told. a= tests for\n"
    "empty cells.",
    1,
    1,
    addFilterOptions,
    filter,
};

} // namespace qxtab
