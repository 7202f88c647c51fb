#include "qx/ptr.h"

#include <cstring>
#include <new>
#include <stdexcept>

namespace QX {

PtrRefCount::~PtrRefCount() {
    // A plain store to a dying object is optimised away; this one tells a stale pointer from a live
    // block.
    char const* volatile& location = location_;
    location = nullptr;
}

void PtrRefCount::release(PtrRefCount* block, void* object) {
    char const* const location = block->location();
    if (location == nullptr || std::strcmp(location, QX_MODULE_TAG) != 0) {
        throw std::logic_error("Deletion across dll boundary");
    }
    Detail::requireReleased(*block);
    ::operator delete(object);
    delete block;
}

void Detail::requireReleased(PtrRefCount& block) {
    if (!block.canDelete()) {
        throw std::logic_error("Reference Count non zero");
    }
}

} // namespace QX
