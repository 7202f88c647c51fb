#pragma once

#include "evaluate.h"

#include <string>
#include <vector>

namespace qxtab {

/// A function of the expressions: what it is called, and what it makes of its arguments' values.
struct Function {
    char const* name;
    char const* parameters; ///< as the help shows them
    char const* help;
    std::size_t fewest;
    std::size_t most;
    Value (*apply)(std::vector<Value> const& arguments, Evaluator& evaluator);
};

/// All functions.
std::vector<Function> const& functions();
/// The function of a name; null when there is none.
Function const* findFunction(std::string const& name);
std::vector<std::string> functionNames();
/// What is wrong with a call, nothing when it is right: the number of arguments, or a pattern.
std::string checkCall(Expression const& call);

} // namespace qxtab
