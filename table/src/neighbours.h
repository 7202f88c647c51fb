#pragma once

#include "base/blocks.h"

#include <cstdint>

namespace QX {

/// True when two of some words are one apart. Takes a few steps for each word and one bit of memory for
/// each step, a quarter of the time of putting them in order.
bool haveNeighbours(BlockVector<std::uint64_t> const& words);

} // namespace QX
