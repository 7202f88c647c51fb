#pragma once

#include <cstdint>
#include <cstring>

namespace QX::Detail {

inline std::uint64_t bitsOf(double number) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

/// True when two numeric cells of these values are equal: equal doubles, or doubles of one sign whose bits
/// are at most one apart (adjacent doubles, or NaNs of one bit pattern).
inline bool equalNumbers(double a, double b) {
    std::uint64_t const aBits = bitsOf(a);
    std::uint64_t const bBits = bitsOf(b);
    constexpr std::uint64_t sign = std::uint64_t{1} << 63U;
    if (aBits - bBits + 1 <= 2) {
        return ((aBits ^ bBits) & sign) == 0;
    }
    return ((aBits | bBits) & ~sign) == 0; // both zeros
}

} // namespace QX::Detail
