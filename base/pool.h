#pragma once

#include "base/fastpaths.h"

#include <cstddef>
#include <new>

// MinGW frees a thread's variables before it runs their destructors, so that none can hand over a heap.
#if defined(QX_KEEP_MEMORY) && !defined(__MINGW32__)
#define QX_POOL
#endif

namespace QX {

/// A base for the library's small objects, of which tables hold millions: packs objects of about one
/// size side by side, which takes less memory and less time than the global operator new.
///
/// Each thread hands out storage from slabs of its own, without locks. Any thread may delete what
/// another has made, also after that one has ended. Empty slabs go back to the global operator delete,
/// but for a few that are kept.
class Pooled {
public:
#if defined(QX_POOL)
    static void* operator new(std::size_t size); // NOLINT(misc-new-delete-overloads)
    static void operator delete(void* object, std::size_t size) noexcept;
#else
    static void* operator new(std::size_t size) {
        return ::operator new(size);
    }
    static void operator delete(void* object, std::size_t /*size*/) noexcept {
        ::operator delete(object);
    }
#endif

protected:
    Pooled() = default;
    ~Pooled() = default;
};

} // namespace QX
