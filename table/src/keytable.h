#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace QX {

/// Numbers to be found by keys, perhaps several by one key and one by several.
class KeyTable {
public:
    void add(std::uint64_t key, std::size_t number) { entries_.push_back({key, number, none}); }

    /// Makes all that was added ready to be found.
    void close() {
        heads_.assign(std::bit_ceil(2 * entries_.size() + 1), none);
        for (std::size_t k = 0; k < entries_.size(); ++k) {
            entries_[k].next = std::exchange(headOf(entries_[k].key), k);
        }
    }

    /// True when `fits(number)` holds of a number with this key; calls it until it does.
    template <typename Fits>
    bool find(std::uint64_t key, Fits const& fits) const {
        for (std::size_t k = heads_[key & (heads_.size() - 1)]; k != none; k = entries_[k].next) {
            if (entries_[k].key == key && fits(entries_[k].number)) {
                return true;
            }
        }
        return false;
    }

private:
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    struct Entry {
        std::uint64_t key;
        std::size_t number;
        std::size_t next; // among those whose keys have the same low bits
    };

    std::size_t& headOf(std::uint64_t key) { return heads_[key & (heads_.size() - 1)]; }

    std::vector<Entry> entries_;
    std::vector<std::size_t> heads_;
};

} // namespace QX
