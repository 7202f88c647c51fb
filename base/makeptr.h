#pragma once

#include "memory/pool.h"
#include "qx/ptr.h"

#include <utility>

namespace QX {

/// A count block and its object in one allocation, so that a handle's two pointers lead to the same
/// place.
template <typename T>
struct Counted final : PtrRefCount, Pooled {
    template <typename... Args>
    explicit Counted(Deleter deleter, Args&&... args)
        : PtrRefCount(QX_MODULE_TAG, deleter), object(std::forward<Args>(args)...) {}

    T object;
};

template <typename T>
void deleteCounted(PtrRefCount* block, void* /*object: a part of the block*/) {
    Detail::requireReleased(*block);
    delete static_cast<Counted<T>*>(block);
}

/// Makes an object of class T with a block of count 1.
template <typename T, typename... Args>
Counted<T>* makeCounted(Args&&... args) {
    return new Counted<T>(&deleteCounted<T>, std::forward<Args>(args)...);
}

/// Makes an object of class T and the first handle to it.
template <typename T, typename... Args>
Ptr<T> makePtr(Args&&... args) {
    Counted<T>* const counted = makeCounted<T>(std::forward<Args>(args)...);
    return Ptr<T>(&counted->object, counted);
}

} // namespace QX
