#pragma once

#include "qx/cell.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace QX {

/// A few hash keys of one cell.
class CellKeys {
public:
    void add(std::uint64_t key) { keys_[size_++] = key; }
    std::uint64_t const* begin() const { return keys_.data(); }
    std::uint64_t const* end() const { return keys_.data() + size_; }

private:
    static constexpr std::size_t most = 6;

    std::array<std::uint64_t, most> keys_{};
    std::size_t size_ = 0;
};

/// Which of the keys are wanted by which dates equal numbers. They take the longest to find.
struct DateKeys {
    bool ofTexts = true;   ///< for numbers to be sought
    bool ofNumbers = true; ///< for dates to be sought
};

/// The keys under which a cell is filed to be found by its equals.
///
/// `filed.compare(sought, false)` is true only when keysOf(filed) and keysFor(sought) have a key in
/// common. They never share two, except by a collision of hashes. The reverse does not hold: the
/// comparison itself decides.
CellKeys keysOf(Cell const& filed, DateKeys dates = {});

/// The keys under which to look for the cells that equal `sought`.
CellKeys keysFor(Cell const& sought);

} // namespace QX
