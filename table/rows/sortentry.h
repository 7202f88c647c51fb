#pragma once

#include "memory/blocks.h"

#include <cstddef>
#include <cstdint>

namespace QX {

/// A sort key and the former position of what it stands for, which keeps the sort stable.
struct SortEntry {
    std::uint64_t key;
    std::size_t row;

    bool operator<(SortEntry const& other) const {
        return key != other.key ? key < other.key : row < other.row;
    }
};

using SortEntries = BlockVector<SortEntry>;

/// Sorts entries whose rows ascend by their keys; stable, since rows of one key ascend again.
void sortEntries(SortEntry* entries, std::size_t count);

} // namespace QX
