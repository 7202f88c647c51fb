#pragma once

#include "arguments.h"
#include "data.h"

#include <functional>
#include <vector>

namespace qxtab {

/// What a verb comes to.
struct Outcome {
    Outcome(Data made, int code = 0) : data(std::move(made)), exitCode(code) {}

    Data data;        ///< to be given to the next verb, or written
    int exitCode = 0; ///< of the program, when this is the last verb
};

/// A verb whose arguments are understood: turns the table, and those of the files that the verb names
/// beside it, into another. The table is given up to it: nobody else reads it afterwards.
using Action = std::function<Outcome(Data const& data, std::vector<Data> const& others)>;

/// One word of the command line.
struct Verb {
    char const* name;
    char const* summary;
    Syntax syntax;
    /// Behind the options; what the summary leaves open.
    char const* help;
    /// A command line to try.
    char const* example;
    /// Understands the arguments before any file is read; raises Misuse.
    Action (*prepare)(Arguments const& arguments);
    /// Whether row n of the result depends on row n of the input alone, so that the first rows of the one
    /// take no more than as many of the other.
    bool rowByRow = false;
    /// What is written unless told otherwise.
    char const* format = "text";
    /// The exit status for what can't be read, done or written.
    int failed = 1;
};

/// All verbs, in the order of the help.
std::vector<Verb const*> const& verbs();

/// The verb of a name. Raises Misuse with what may have been meant.
Verb const& verbNamed(std::string const& name);

} // namespace qxtab
