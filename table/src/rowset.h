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
    explicit RowSet(std::size_t rows) : slots_(std::bit_ceil(2 * rows + 1), Slot{0, none}) {}

    /// Adds a row unless `equal(earlier)` holds of a row in the set. Returns the one that is then in the
    /// set: the earlier one or the row itself. Rows that are equal must have one hash.
    template <typename Equal>
    std::size_t insert(std::size_t row, std::uint64_t hash, Equal const& equal) {
        std::size_t k = placeOf(hash);
        for (; slots_[k].row != none; k = placeOf(k + 1)) {
            if (slots_[k].hash == hash && equal(slots_[k].row)) {
                return slots_[k].row;
            }
        }
        slots_[k] = {hash, row};
        return row;
    }

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    struct Slot {
        std::uint64_t hash;
        std::size_t row; // none: this slot is free
    };

    std::size_t placeOf(std::uint64_t hash) const { return hash & (slots_.size() - 1); }

    BlockVector<Slot> slots_; // a row stands in the first free one from that of its hash's low bits on
};

} // namespace QX
