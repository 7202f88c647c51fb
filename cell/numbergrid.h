#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace QX {

/// Numbers a double in the grid of all doubles, both zeros as 0: ascending as they do, with numbers that
/// are next to each other one apart. NaNs lie beyond the infinities, in the order of their bits.
inline std::int64_t gridPlace(double number) {
    auto const magnitude = std::bit_cast<std::int64_t>(std::fabs(number));
    return std::signbit(number) ? -magnitude : magnitude;
}

/// The same as a number without sign, in the same order.
inline std::uint64_t gridWord(double number) {
    return static_cast<std::uint64_t>(gridPlace(number)) ^ std::uint64_t{1} << 63U;
}

/// True for a number of which no other of its sort is the next in the grid.
inline bool standsApart(double number) {
    constexpr double limit = 4503599627370496.0; // from here on whole numbers are next to each other
    return std::trunc(number) == number && std::fabs(number) < limit;
}

} // namespace QX
