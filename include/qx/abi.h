#pragma once

#include "qx/export.h"
#include "qx/version.h"

#include <cstddef> // says which standard library it belongs to

// What the headers of this library and the library itself must agree on, for they hold the standard
// library's types and look into each other's: its version, and which standard library there is. Both are in
// the name of a variable that the library defines and that every source file which includes these headers
// refers to. So a program that mixes them is refused when it is linked:
//
//     undefined reference to `QX::Detail::needs_qx_0_2_built_with_libcxx_1'

#if defined(_LIBCPP_VERSION)
#define QX_ABI_LIBRARY QX_ABI_JOIN(libcxx_, _LIBCPP_ABI_VERSION)
#elif defined(_GLIBCXX_DEBUG)
#define QX_ABI_LIBRARY QX_ABI_JOIN(libstdcxx_debug_, _GLIBCXX_USE_CXX11_ABI)
#elif defined(__GLIBCXX__)
#define QX_ABI_LIBRARY QX_ABI_JOIN(libstdcxx_, _GLIBCXX_USE_CXX11_ABI)
#elif defined(_MSVC_STL_VERSION)
#define QX_ABI_LIBRARY QX_ABI_JOIN(msvc_, _ITERATOR_DEBUG_LEVEL)
#else
#define QX_ABI_LIBRARY unknown_library
#endif

#define QX_ABI_JOIN(text, number) QX_ABI_JOIN_EXPANDED(text, number)
#define QX_ABI_JOIN_EXPANDED(text, number) text##number
#define QX_ABI_NAME(major, minor, library) QX_ABI_NAME_EXPANDED(major, minor, library)
#define QX_ABI_NAME_EXPANDED(major, minor, library) needs_qx_##major##_##minor##_built_with_##library

/// The name of the variable. What else the headers come to depend on belongs into it.
#define QX_ABI_SYMBOL QX_ABI_NAME(QX_VERSION_MAJOR, QX_VERSION_MINOR, QX_ABI_LIBRARY)

namespace QX::Detail {

QX_API extern char const QX_ABI_SYMBOL;

#if defined(__GNUC__)
[[gnu::used]] // or nothing would be left of it
#endif
static char const* const abiNeeded = &QX_ABI_SYMBOL;

} // namespace QX::Detail
