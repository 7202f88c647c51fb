#pragma once

#include "pattern.h"

#include <optional>

namespace qxtab {

/// A part of a pattern.
struct PatternPart {
    enum Kind { One, Sequence, Choice, Repeat };

    Kind kind = Sequence;
    Pattern::Step step; ///< of One
    std::size_t least = 0;
    std::optional<std::size_t> most{}; ///< of Repeat; without it there is no bound
    std::vector<PatternPart> parts{};
};

/// Reads a pattern into parts. Raises Misuse for one that can't be read or is nested more than 100 deep.
PatternPart readPattern(std::string_view text);

} // namespace qxtab
