#pragma once

#include <cstdint>

namespace QX {

/// Spreads the bits of a number, so that numbers close to each other get hashes that are far apart.
inline std::uint64_t spread(std::uint64_t number) {
    number *= 0x9E3779B97F4A7C15U; // 2^64 divided by the golden ratio
    return number ^ (number >> 32U);
}

} // namespace QX
