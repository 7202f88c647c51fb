#pragma once

#include "base/fastpaths.h"

#include <cstddef>
#include <new>

// MinGW frees a thread's variables before it runs their destructors, so that none can hand over a heap.
#if defined(QX_KEEP_MEMORY) && !defined(__MINGW32__)
#define QX_POOL
#endif

namespace QX {

/// Storage for the library's small objects and arrays, of which tables hold millions: packs those of
/// about one size side by side, which takes less memory and less time than the global operator new. That
/// one hands out what is larger.
///
/// Each thread hands out storage from slabs of its own, without locks. Any thread may give back what
/// another has taken, also after that one has ended. Empty slabs go back to the global operator delete,
/// but for a few that are kept. Raises std::bad_alloc.
#if defined(QX_POOL)
void* takeStorage(std::size_t size);
void giveStorage(void* storage, std::size_t size) noexcept;
#else
inline void* takeStorage(std::size_t size) {
    return ::operator new(size);
}
inline void giveStorage(void* storage, std::size_t /*size*/) noexcept {
    ::operator delete(storage);
}
#endif

/// A base for objects that are kept in such storage.
class Pooled {
public:
    // NOLINTNEXTLINE(misc-new-delete-overloads)
    static void* operator new(std::size_t size) { return takeStorage(size); }
    static void operator delete(void* object, std::size_t size) noexcept { giveStorage(object, size); }

protected:
    Pooled() = default;
    ~Pooled() = default;
};

} // namespace QX
