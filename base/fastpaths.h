#pragma once

namespace QX {

/// False in a build without the faster ways (-DQX_FAST_PATHS=OFF), which gives the same answers by the
/// plain algorithms and the global operator new alone.
#if defined(QX_FAST_PATHS)
inline constexpr bool fastPaths = true;
#else
inline constexpr bool fastPaths = false;
#endif

} // namespace QX
