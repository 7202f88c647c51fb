#pragma once

#include "operand.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace qxtab {

using ReadList = QX::Ptr<QX::Table const> (*)(std::string const& text);

/// Adds an option whose text is a list that `read` understands; wrong usage is told as that of others.
CLI::Option* addList(CLI::App& app, char const* flag, QX::Ptr<QX::Table const>& operand, ReadList read,
                     char const* help);

/// Adds a list option that may be given more than once.
CLI::Option* addLists(CLI::App& app, char const* flag, std::vector<QX::Ptr<QX::Table const>>& operands,
                      ReadList read, char const* help);

} // namespace qxtab
