#include "table/src/keyedplaces.h"

#include <algorithm>
#include <array>
#include <utility>

namespace QX {

namespace {

/// Sorts many places, which stand in ascending order, byte by byte of their words. Takes a third of the
/// time of comparing them.
void sortByBytes(KeyedPlace* places, std::size_t count) {
    constexpr std::size_t bytes = sizeof(KeyedPlace::word);
    std::array<std::array<std::size_t, 256>, bytes> counts{};
    for (std::size_t k = 0; k < count; ++k) {
        for (std::size_t byte = 0; byte < bytes; ++byte) {
            ++counts[byte][places[k].word >> (8 * byte) & 0xffU];
        }
    }
    KeyedPlaces other(count);
    KeyedPlace* from = places;
    KeyedPlace* to = other.data();
    for (std::size_t byte = 0; byte < bytes; ++byte) {
        if (counts[byte][from->word >> (8 * byte) & 0xffU] == count) {
            continue; // all have the same
        }
        std::size_t next = 0;
        for (std::size_t& each : counts[byte]) {
            next += std::exchange(each, next);
        }
        for (std::size_t k = 0; k < count; ++k) {
            to[counts[byte][from[k].word >> (8 * byte) & 0xffU]++] = from[k];
        }
        std::swap(from, to);
    }
    if (from != places) {
        std::copy(from, from + count, places);
    }
}

} // namespace

void sortPlaces(KeyedPlace* places, std::size_t count) {
    constexpr std::size_t few = 1000;
    if (count <= few) {
        std::sort(places, places + count);
    } else {
        sortByBytes(places, count);
    }
}

} // namespace QX
