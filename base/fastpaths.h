#pragma once

// The address sanitizer finds what goes wrong with an object only if it hands out the storage itself.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QX_ADDRESS_SANITIZER
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define QX_ADDRESS_SANITIZER
#endif
#if defined(QX_FAST_PATHS) && !defined(QX_ADDRESS_SANITIZER)
#define QX_KEEP_MEMORY
#endif

namespace QX {

/// False in a build without the faster ways (-DQX_FAST_PATHS=OFF), which gives the same answers by the
/// plain algorithms and the global operator new alone.
#if defined(QX_FAST_PATHS)
inline constexpr bool fastPaths = true;
#else
inline constexpr bool fastPaths = false;
#endif

/// True where memory that was given back is kept to be handed out again.
#if defined(QX_KEEP_MEMORY)
inline constexpr bool keepMemory = true;
#else
inline constexpr bool keepMemory = false;
#endif

} // namespace QX
