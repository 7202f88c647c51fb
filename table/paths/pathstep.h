#pragma once

#include "memory/blocks.h"
#include "qx/table.h"

#include <cstddef>
#include <string_view>

namespace QX {

/// One step of a path; its texts are views of the path's.
struct PathStep {
    std::string_view text;          ///< the whole step
    std::string_view name;          ///< empty when the item number cannot be read
    std::size_t item = Table::npos; ///< npos without an item number, or when it cannot be read
    bool readable = true;           ///< false when the item number cannot be read
    bool last = false;              ///< true when no separator follows
};

/// The path behind its leading separators.
std::string_view skipSeparators(std::string_view path, char separator);

/// Reads the head step and takes it off the path, together with the separator that follows it.
PathStep takeStep(std::string_view& path, char separator);

/// The steps of a path up to the first without a name or with a number that cannot be read; without the
/// last of the path if that is left to the caller.
BlockVector<PathStep> stepsOf(std::string_view path, char separator, bool leaveLast);

} // namespace QX
