#pragma once

/// Marks what the base library exports; define QXBASE_STATIC to use it as a static library.
/// Written as attributes where the compiler takes no other beside [[nodiscard]].
#if defined(QXBASE_STATIC)
#define QXBASE_API
#elif defined(_WIN32) && defined(__GNUC__) && defined(QXBASE_BUILD)
#define QXBASE_API [[gnu::dllexport]]
#elif defined(_WIN32) && defined(__GNUC__)
#define QXBASE_API [[gnu::dllimport]]
#elif defined(_WIN32) && defined(QXBASE_BUILD)
#define QXBASE_API __declspec(dllexport)
#elif defined(_WIN32)
#define QXBASE_API __declspec(dllimport)
#else
#define QXBASE_API [[gnu::visibility("default")]]
#endif
