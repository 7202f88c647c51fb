#pragma once

#include "commands.h"

#include <cstddef>
#include <string>

namespace qxtab {

/// The text of the name of an index.
std::string nameText(QX::Table const& table, std::size_t index);

/// Whether an operation that matches the operand's names by text finds this one in the table.
bool hasIndex(QX::Table const& table, std::string const& name);

/// Tells each name of the operand that the input lacks.
void tellMissing(Input const& input, QX::Table const& operand);

/// The message for an index that the input lacks.
std::string missing(Input const& input, std::string const& name);

} // namespace qxtab
