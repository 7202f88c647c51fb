#pragma once

#include <cstddef> // tells which C library it is

/// Stands before a thread's own variables that the release of a table uses. Their memory may otherwise
/// be allocated when the thread first uses them, which releasing must not do; this model sets it aside
/// when the library is loaded. Other C libraries may refuse to load such a library into a running
/// program.
#if defined(__GLIBC__)
#define QX_TLS_INITIAL_EXEC [[gnu::tls_model("initial-exec")]]
#else
#define QX_TLS_INITIAL_EXEC
#endif
