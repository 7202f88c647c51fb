#pragma once

#include "options.h"

#include <qx/qx.h>

#include <cstddef>
#include <vector>

namespace CLI {
class App;
}

namespace qxtab {

/// The tables of the files that the command line names, in its order.
using Inputs = std::vector<QX::Ptr<QX::Table const>>;

/// One word of the command line: what it does with its inputs.
struct Command {
    char const* name;
    char const* summary;
    std::size_t fewestFiles;
    std::size_t mostFiles;
    /// Adds the options that only this command has; null when there are none.
    void (*addOptions)(CLI::App& app, Options& options);
    /// Makes the table to write.
    QX::Ptr<QX::Table const> (*run)(Options const& options, Inputs const& inputs);
};

/// All commands, in the order of the help.
std::vector<Command> const& commands();

} // namespace qxtab
