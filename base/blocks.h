#pragma once

#include "base/fastpaths.h"
#include "base/pool.h"

#include <cstddef>
#include <limits>
#include <new>
#include <vector>

namespace QX {

/// Large blocks of memory, of which some that were given back are kept: the system clears fresh memory
/// page by page, which takes longer than most of what is done with a result. What is kept is never more
/// than what is in use. Raises std::bad_alloc; any thread may give back what another took.
void* takeBlock(std::size_t bytes);
void giveBlock(void* block) noexcept;

/// Allocates arrays, the large ones as such blocks and the small ones in the storage of small objects.
template <typename T>
class BlockAllocator {
public:
    using value_type = T;

    BlockAllocator() = default;
    template <typename U>
    BlockAllocator(BlockAllocator<U> const& /*other*/) noexcept {}

    T* allocate(std::size_t count) {
        if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) {
            throw std::bad_array_new_length();
        }
        std::size_t const bytes = count * sizeof(T);
        return static_cast<T*>(isLarge(bytes) ? takeBlock(bytes) : takeStorage(bytes));
    }
    void deallocate(T* array, std::size_t count) noexcept {
        std::size_t const bytes = count * sizeof(T);
        if (isLarge(bytes)) {
            giveBlock(array);
        } else {
            giveStorage(array, bytes);
        }
    }

    template <typename U>
    bool operator==(BlockAllocator<U> const& /*other*/) const {
        return true;
    }

private:
    static bool isLarge(std::size_t bytes) {
        constexpr std::size_t large = std::size_t{1} << 18U;
        return keepMemory && bytes >= large;
    }
};

/// A vector that is small, or large, and of which there are soon others of its size.
template <typename T>
using BlockVector = std::vector<T, BlockAllocator<T>>;

} // namespace QX
