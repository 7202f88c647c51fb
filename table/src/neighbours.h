#pragma once

#include "base/blocks.h"

#include <cstdint>

namespace QX {

/// True when two of some words are one apart. Takes a few steps and two to four bytes for each word, a
/// quarter of the time of putting them in order, and does that with the few that may have a neighbour.
bool haveNeighbours(BlockVector<std::uint64_t> const& words);

} // namespace QX
