#pragma once

#include "memory/chunk.h"

#include <array>
#include <cstddef>
#include <mutex>

namespace QX {

inline constexpr std::size_t sizeStep = 16;       // sizes that round up to one multiple share slabs
inline constexpr std::size_t largestPooled = 256; // larger ones are left to the program's allocator
inline constexpr std::size_t sizeClasses = largestPooled / sizeStep;

inline std::size_t sizeClassOf(std::size_t size) {
    return (size - 1) / sizeStep;
}

/// The slabs of the program. Threads exchange storage with it by the chain: linked to each other, all of
/// one size class.
///
/// A slab that becomes empty serves any size class again. Chunks whose slabs are all empty are given back
/// to the program's allocator, but for a few.
class SlabPool {
public:
    /// Hands out a chain of at most `count`, at least one; raises std::bad_alloc.
    FreeNode* take(std::size_t sizeClass, std::size_t count);
    /// Takes a chain back. Never allocates.
    void give(FreeNode* chain) noexcept;
    /// Gives back the empty chunks; returns how many bytes that were.
    std::size_t release() noexcept;
    /// Keeps no empty chunks from now on.
    void close() noexcept;

    void lock() { mutex_.lock(); }
    void unlock() { mutex_.unlock(); }

private:
    FreeNode* takeHeld(std::size_t sizeClass, std::size_t count);
    Slab* openSlab(std::size_t sizeClass);
    void giveOne(void* object, List<Chunk>& surplus);
    void giveSlab(Slab& slab, List<Chunk>& surplus);

    std::mutex mutex_;
    std::array<List<Slab>, sizeClasses> open_; // those that are not full
    List<Chunk> chunks_;                       // neither full nor empty
    List<Chunk> empty_;
    std::size_t emptyCount_ = 0;
    std::size_t mostEmpty_ = (std::size_t{1} << 24U) / Chunk::bytes;
};

SlabPool& slabPool();

} // namespace QX
