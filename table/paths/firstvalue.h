#pragma once

#include "table/model/tableimpl.h"
#include "table/paths/pathstep.h"

#include <span>

namespace QX {

/// The first value that at least one step reaches from a table, in the order in which a walk collects
/// them; null when there is none. Looks at no more tables than lie before it, each once for each step.
Cell const* firstValue(TableImplementation const& root, std::span<PathStep const> steps);

} // namespace QX
