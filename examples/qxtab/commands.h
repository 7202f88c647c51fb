#pragma once

#include "options.h"

#include <qx/qx.h>

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace qxtab {

/// A file that the command line names.
struct Input {
    std::string file; ///< what messages call it
    QX::Ptr<QX::Table const> table;
};

/// The files in the order of the command line.
using Inputs = std::vector<Input>;

/// What a command comes to.
struct Outcome {
    QX::Ptr<QX::Table const> table; ///< to be written
    int exitCode = 0;
};

/// One word of the command line: what it does with its inputs.
struct Command {
    static int const anyNumber = -1;

    char const* name;
    char const* summary;
    char const* help; ///< behind the options; null when the summary says it all
    int fewestFiles;
    int mostFiles; ///< may be anyNumber
    /// Adds the options that only this command has; null when there are none.
    void (*addOptions)(CLI::App& app, Options& options);
    Outcome (*run)(Options const& options, Inputs const& inputs);
    int failed = 1;              ///< the exit code for what can't be read, done or written
    char const* format = "text"; ///< what is written unless told otherwise
};

/// All commands, in the order of the help.
std::vector<Command> const& commands();

// The commands, family by family.
extern Command const showCommand, transposeCommand, getCommand;
extern Command const sortCommand, filterCommand;
extern Command const selectCommand, fillCommand;
extern Command const appendCommand, mergeCommand, overlayCommand, compareCommand;
extern Command const sumCommand, addCommand, subtractCommand;

} // namespace qxtab
