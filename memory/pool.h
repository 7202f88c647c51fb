#pragma once

#include "memory/pooling.h"

#include <cstddef>
#include <new>

namespace QX {

/// Storage for the library's small objects and arrays, of which tables hold millions: packs those of
/// about one size side by side, which takes less memory and less time than the global operator new. That
/// one hands out what is larger than 256 bytes, and everything where pooling is off.
///
/// Any thread may give back what another has taken. Raises std::bad_alloc.
#if defined(QX_POOLING)
void* takeStorage(std::size_t size);
void giveStorage(void* storage, std::size_t size) noexcept;
/// To be called when much may have been given back: this thread keeps no storage that lies scattered.
void settleStorage() noexcept;
#else
inline void* takeStorage(std::size_t size) {
    return ::operator new(size);
}
inline void giveStorage(void* storage, std::size_t /*size*/) noexcept {
    ::operator delete(storage);
}
inline void settleStorage() noexcept {
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
