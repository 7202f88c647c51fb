#include "commands.h"

#include "failure.h"

namespace qxtab {

namespace {

Outcome show(Options const&, Inputs const& inputs) {
    return {inputs.front().table};
}

Outcome transpose(Options const&, Inputs const& inputs) {
    QX::Ptr<QX::Table> result;
    require(inputs.front().table->transpose(result));
    return {result};
}

} // namespace

Command const showCommand = {"show", "Print a table", nullptr, 1, 1, nullptr, show};

Command const transposeCommand = {
    "transpose",
    "Turn indices into rows",
    "The names become the first index, and the items of the first index the names.",
    1,
    1,
    nullptr,
    transpose,
};

std::vector<Command> const& commands() {
    static std::vector<Command> const all = {
        showCommand,      getCommand,    sortCommand,  filterCommand,   selectCommand,
        fillCommand,      appendCommand, mergeCommand, overlayCommand,  compareCommand,
        transposeCommand, sumCommand,    addCommand,   subtractCommand,
    };
    return all;
}

} // namespace qxtab
