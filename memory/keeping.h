#pragma once

#include <cstddef>

namespace QX {

/// Gives back to the program's allocator what the library keeps to use again: this thread's storage, the
/// empty slabs and the large arrays. Returns how many bytes that were.
#if defined(QX_POOLING)
std::size_t releaseKept() noexcept;
#else
inline std::size_t releaseKept() noexcept {
    return 0;
}
#endif

} // namespace QX
