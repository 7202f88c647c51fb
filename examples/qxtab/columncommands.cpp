#include "commands.h"
#include "failure.h"
#include "listoption.h"
#include "names.h"

#include <limits>

namespace qxtab {

namespace {

void addSelectOptions(CLI::App& app, Options& options) {
    addList(app, "--columns", options.operand, readRenames,
            "The indices in the order wanted, with new names where wanted: a,b=new")
        ->required();
    app.add_flag("--distinct", options.distinct, "Remove rows that equal an earlier row");
    app.add_flag("--invert", options.invert, "Pick the indices that the list does not name");
    app.add_flag("--keep-unmatched", options.keepUnmatched,
                 "Give an index of its name alone for a name that the file lacks; "
                 "with --invert also pick indices without a name");
}

Outcome select(Options const& options, Inputs const& inputs) {
    Input const& input = inputs.front();
    if (!options.keepUnmatched || options.invert) {
        tellMissing(input, *options.operand);
    }
    QX::Ptr<QX::Table> result;
    require(input.table->select(options.operand, result, options.keepUnmatched, options.distinct,
                                options.invert));
    return {result};
}

void addFillOptions(CLI::App& app, Options& options) {
    addList(app, "--values", options.operand, readValues, "The indices and their values: a=0,b=x")
        ->required();
    app.add_option("--rows", options.rows, "Give the filled indices at least N data rows")
        ->check(CLI::Range(0, std::numeric_limits<int>::max() - 1))
        ->type_name("N");
}

Outcome fill(Options const& options, Inputs const& inputs) {
    QX::Ptr<QX::Table> result;
    require(inputs.front().table->fill(options.operand, result, options.rows + 1));
    return {result};
}

} // namespace

Command const selectCommand = {
    "select",
    "Pick indices by name, in the order of the list",
    "A name that the file lacks is skipped and told, unless --keep-unmatched. With --invert\n"
    "the indices stay in the file's order, and new names are not read. With --distinct\n"
    "rows that equal an earlier row, the names included, are removed.",
    1,
    1,
    addSelectOptions,
    select,
};

Command const fillCommand = {
    "fill",
    "Fill whole indices with one value",
    "An index that the file lacks is added at the end.",
    1,
    1,
    addFillOptions,
    fill,
};

} // namespace qxtab
