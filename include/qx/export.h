#pragma once

#if __cplusplus < 201703L && !(defined(_MSVC_LANG) && _MSVC_LANG >= 201703L)
#error "QX needs C++17 or later (-std=c++17, /std:c++17)"
#endif

/// Marks what the library exports; define QX_STATIC to use it as a static library.
#if defined(QX_STATIC)
#define QX_API
#elif defined(_WIN32) && defined(QX_BUILD)
#define QX_API __declspec(dllexport)
#elif defined(_WIN32)
#define QX_API __declspec(dllimport)
#else
#define QX_API [[gnu::visibility("default")]]
#endif

/// Keeps an inline function within the module that compiled it, so that no other module's copy of it is
/// called in its place.
#if defined(_WIN32)
#define QX_LOCAL
#else
#define QX_LOCAL [[gnu::visibility("hidden")]]
#endif

/// Marks a function that is rarely called, so that its callers keep their registers where it is not.
#if defined(__GNUC__)
#define QX_COLD [[gnu::cold]]
#else
#define QX_COLD
#endif

#include "qx/abi.h" // each public header brings it along
