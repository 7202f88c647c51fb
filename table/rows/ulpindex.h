#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace QX {

/// Numbers the doubles in ascending order, both zeros as 0, so that adjacent doubles (1 ulp apart) differ
/// by 1. NaNs lie beyond the infinities, in the order of their bits.
inline std::int64_t ulpIndex(double number) {
    auto const magnitude = std::bit_cast<std::int64_t>(std::fabs(number));
    return std::signbit(number) ? -magnitude : magnitude;
}

/// The same as an unsigned number, in the same order.
inline std::uint64_t ulpWord(double number) {
    return static_cast<std::uint64_t>(ulpIndex(number)) ^ std::uint64_t{1} << 63U;
}

/// True for an integer so small that no other integer is adjacent to it.
inline bool isExactInteger(double number) {
    constexpr double limit = 4503599627370496.0; // 2^52: from here on all doubles are integers
    return std::trunc(number) == number && std::fabs(number) < limit;
}

} // namespace QX
