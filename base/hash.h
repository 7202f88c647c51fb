#pragma once

#include <cstdint>

namespace QX {

/// Spreads the bits of a number over all bits of a hash, also of numbers that differ in their highest
/// bits alone, as the patterns of small whole doubles do.
inline std::uint64_t spread(std::uint64_t number) {
    number ^= number >> 32U;       // a product's low bits know nothing of the high bits of its factors
    number *= 0x9E3779B97F4A7C15U; // 2^64 divided by the golden ratio
    return number ^ (number >> 32U);
}

} // namespace QX
