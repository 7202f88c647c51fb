#pragma once

#include "qx/export.h"

#include <cstddef>

namespace QX {

/// Gives back memory that the library keeps to use again; returns how many bytes that were.
///
/// When tables and cells go, the library keeps some of their memory for those that come: of large arrays
/// at most 32 MiB, of small objects at most 16 MiB that no object lies in, and for each thread at most
/// 140 KiB of small objects that are ready to be used. This gives back all of that but what other threads
/// have ready, to the functions that the program allocates with: free and the global operator delete.
/// Whether those return it to the system is their choice.
///
/// The library calls it itself before it raises std::bad_alloc. Call it when a large piece of work is
/// over, or from a handler that is installed by std::set_new_handler. Any thread may call it at any time.
/// What is needed next is then allocated anew, which costs what it cost at first.
///
/// Nothing is kept, and 0 returned, where the library was built with -DQX_POOLING=OFF (always so on
/// Windows) or where the environment variable QX_POOLING is 0 when the library is loaded. The same holds
/// where a sanitizer's run-time library is part of the process or valgrind runs it, unless the variable
/// is 1, so that these see each object.
QX_API std::size_t releaseMemory() noexcept;

} // namespace QX
