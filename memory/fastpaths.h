#pragma once

#if defined(QX_SWITCHABLE_FAST_PATHS)
#include <atomic>
#endif

namespace QX {

#if defined(QX_SWITCHABLE_FAST_PATHS)

/// Reads as true, unless a test that looks inside has turned the faster ways off meanwhile.
struct FastPaths {
    static inline std::atomic<bool> taken{true};

    operator bool() const { return taken.load(std::memory_order_relaxed); } // NOLINT: stands for a bool
};
inline constexpr FastPaths fastPaths;

#elif defined(QX_FAST_PATHS)

inline constexpr bool fastPaths = true;

#else

/// False in a build without the faster ways (-DQX_FAST_PATHS=OFF), which gives the same answers by the
/// plain algorithms alone.
inline constexpr bool fastPaths = false;

#endif

} // namespace QX
