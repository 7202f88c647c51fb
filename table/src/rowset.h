#pragma once

#include "base/blocks.h"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace QX {

/// A set of rows that tells whether an equal row is in it already; for rows numbered below a known
/// count.
class RowSet {
public:
    explicit RowSet(std::size_t rows)
        : heads_(std::bit_ceil(rows + 1), none), next_(rows), hashes_(rows) {}

    /// Adds a row unless `equal(earlier)` holds of a row in the set; true when it was added. Rows that
    /// are equal must have one hash.
    template <typename Equal>
    bool insert(std::size_t row, std::uint64_t hash, Equal const& equal) {
        std::size_t& head = heads_[hash & (heads_.size() - 1)];
        for (std::size_t earlier = head; earlier != none; earlier = next_[earlier]) {
            if (hashes_[earlier] == hash && equal(earlier)) {
                return false;
            }
        }
        hashes_[row] = hash;
        next_[row] = head;
        head = row;
        return true;
    }

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    BlockVector<std::size_t> heads_; // of the chains, by the low bits of the hash
    BlockVector<std::size_t> next_;
    BlockVector<std::uint64_t> hashes_;
};

} // namespace QX
