#pragma once

#include <cstddef>
#include <limits>
#include <new>
#include <vector>

namespace QX {

/// Storage for arrays: small ones lie among the small objects. Of large ones that were given back some
/// are kept, since the system clears fresh memory page by page, which takes longer than most of what is
/// done with a result; what is kept is never more than what is in use and 64 MiB. Raises std::bad_alloc;
/// any thread may give back what another took.
void* takeArray(std::size_t bytes);
/// The same for an array that is given back soon, and so may lie in a kept one of up to twice the size.
void* takeScratch(std::size_t bytes);
/// Gives an array other storage, larger than its own, and moves its bytes there.
void* growArray(void* array, std::size_t bytes, std::size_t wanted);
void giveArray(void* array, std::size_t bytes) noexcept;

/// Allocates arrays in such storage.
template <typename T>
class BlockAllocator {
public:
    using value_type = T;

    BlockAllocator() = default;
    template <typename U>
    BlockAllocator(BlockAllocator<U> const& /*other*/) noexcept {}

    T* allocate(std::size_t count) {
        if (count > std::numeric_limits<std::size_t>::max() / each) {
            throw std::bad_array_new_length();
        }
        return static_cast<T*>(takeScratch(count * each));
    }
    void deallocate(T* array, std::size_t count) noexcept { giveArray(array, count * each); }

    template <typename U>
    bool operator==(BlockAllocator<U> const& /*other*/) const {
        return true;
    }

private:
    static constexpr std::size_t each = sizeof(T); // NOLINT(bugprone-sizeof-expression): also pointers
};

/// A vector that is small, or large, and of which there are soon others of its size.
template <typename T>
using BlockVector = std::vector<T, BlockAllocator<T>>;

} // namespace QX
