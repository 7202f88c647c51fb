#pragma once

#include "base/blocks.h"

#include <cstddef>
#include <cstdint>

namespace QX {

/// A row by its place in the order before, with what it is sorted by next.
struct KeyedPlace {
    std::uint64_t word;
    std::size_t place;

    bool operator<(KeyedPlace const& other) const {
        return word != other.word ? word < other.word : place < other.place;
    }
};

using KeyedPlaces = BlockVector<KeyedPlace>;

/// Sorts places that stand in ascending order by their words, those of one word as they stood.
void sortPlaces(KeyedPlace* places, std::size_t count);

} // namespace QX
