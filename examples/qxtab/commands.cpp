#include "commands.h"

namespace qxtab {

namespace {

QX::Ptr<QX::Table const> show(Options const&, Inputs const& inputs) {
    return inputs.front();
}

} // namespace

std::vector<Command> const& commands() {
    static std::vector<Command> const all = {
        {"show", "Print a table", 1, 1, nullptr, show},
    };
    return all;
}

} // namespace qxtab
