#pragma once

/// Marks what the base library exports; define QXBASE_STATIC to use it as a static library.
#if defined(QXBASE_STATIC)
#define QXBASE_API
#elif defined(_WIN32) && defined(QXBASE_BUILD)
#define QXBASE_API __declspec(dllexport)
#elif defined(_WIN32)
#define QXBASE_API __declspec(dllimport)
#else
#define QXBASE_API [[gnu::visibility("default")]]
#endif
