#pragma once

#include <cstddef>
#include <mutex>

namespace QX {

/// What stands before the memory of a large array.
struct Block {
    std::size_t bytes; // of the memory
    Block* next;       // among those that are kept

    void* memory() { return this + 1; }
    static Block* of(void* memory) { return static_cast<Block*>(memory) - 1; }
};

static_assert(sizeof(Block) % alignof(std::max_align_t) == 0, "what follows must be aligned, too");

/// Large arrays that were given back and are kept, the last one first.
class BlockCache {
public:
    /// A block of so many bytes and at most `spare` more; null if there is none.
    Block* take(std::size_t bytes, std::size_t spare);
    /// Keeps a block; those that are now too many go back to the program's allocator.
    void give(Block* block) noexcept;
    /// Gives back all blocks; returns how many bytes that were.
    std::size_t release() noexcept;
    /// Keeps no blocks from now on.
    void close() noexcept;

    void lock() { mutex_.lock(); }
    void unlock() { mutex_.unlock(); }

private:
    static constexpr std::size_t mostBlocks = 32;

    /// Keeps a block; returns those that are now too many, linked to each other.
    Block* keep(Block* block);
    Block* remove(Block** place);

    std::mutex mutex_;
    Block* first_ = nullptr;
    std::size_t count_ = 0;
    std::size_t bytes_ = 0;
    std::size_t mostBytes_ = std::size_t{1} << 25U;
};

BlockCache& blockCache();

} // namespace QX
