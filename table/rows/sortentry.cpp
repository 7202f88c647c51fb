#include "table/rows/sortentry.h"

#include <algorithm>
#include <array>
#include <utility>

namespace QX {

namespace {

/// A radix sort, byte by byte of the keys. Takes a third of the time of comparing many entries.
void radixSort(SortEntry* entries, std::size_t count) {
    constexpr std::size_t bytes = sizeof(SortEntry::key);
    std::array<std::array<std::size_t, 256>, bytes> counts{};
    for (std::size_t k = 0; k < count; ++k) {
        for (std::size_t byte = 0; byte < bytes; ++byte) {
            ++counts[byte][entries[k].key >> (8 * byte) & 0xffU];
        }
    }
    SortEntries other(count);
    SortEntry* from = entries;
    SortEntry* to = other.data();
    for (std::size_t byte = 0; byte < bytes; ++byte) {
        if (counts[byte][from->key >> (8 * byte) & 0xffU] == count) {
            continue; // all have the same
        }
        std::size_t next = 0;
        for (std::size_t& each : counts[byte]) {
            next += std::exchange(each, next);
        }
        for (std::size_t k = 0; k < count; ++k) {
            to[counts[byte][from[k].key >> (8 * byte) & 0xffU]++] = from[k];
        }
        std::swap(from, to);
    }
    if (from != entries) {
        std::copy(from, from + count, entries);
    }
}

} // namespace

void sortEntries(SortEntry* entries, std::size_t count) {
    constexpr std::size_t few = 1000;
    if (count <= few) {
        std::sort(entries, entries + count);
    } else {
        radixSort(entries, count);
    }
}

} // namespace QX
