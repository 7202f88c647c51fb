#include "memory/keeping.h"

#include "qx/memory.h"

namespace QX {

std::size_t releaseMemory() noexcept {
    return releaseKept();
}

} // namespace QX
