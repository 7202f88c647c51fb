#include "base/blocks.h"

#include "base/fastpaths.h"
#include "base/immortal.h"
#include "base/pages.h"
#include "base/pool.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <mutex>
#include <new>
#include <utility>

namespace QX {

namespace {

/// What stands before the memory of a block.
struct Block {
    std::size_t bytes; // of the memory
    Block* next;       // among those that are kept

    void* memory() { return this + 1; }
    static Block* of(void* memory) { return static_cast<Block*>(memory) - 1; }
    static Block* make(std::size_t bytes) {
        void* const pages = takePages(whole(bytes));
        readyPages(pages, whole(bytes));
        return new (pages) Block{bytes, nullptr};
    }
    static Block* grow(Block* block, std::size_t bytes) {
        std::size_t const former = block->bytes;
        auto* const grown = static_cast<Block*>(growPages(block, whole(former), whole(bytes)));
        grown->bytes = bytes;
        constexpr std::size_t ahead = std::size_t{1} << 25U; // not all may come to be needed
        readyPages(static_cast<std::byte*>(grown->memory()) + former, std::min(bytes - former, ahead));
        return grown;
    }
    static void destroy(Block* block) { givePages(block, whole(block->bytes)); }

private:
    static std::size_t whole(std::size_t bytes) {
        if (bytes > std::numeric_limits<std::size_t>::max() / 2) {
            throw std::bad_alloc();
        }
        return sizeof(Block) + bytes;
    }
};

/// The blocks of the program that are kept, the last one given back first.
class Keep {
public:
    /// A block of so many bytes and at most `spare` more; null if there is none.
    Block* take(std::size_t bytes, std::size_t spare) {
        std::lock_guard const lock(mutex_);
        for (Block** place = &first_; *place != nullptr; place = &(*place)->next) {
            Block* const block = *place;
            if (block->bytes >= bytes && block->bytes - bytes <= spare) {
                remove(place);
                used_ += block->bytes;
                return block;
            }
        }
        return nullptr;
    }

    /// Takes note that so many bytes more are in use.
    void use(std::size_t bytes) {
        std::lock_guard const lock(mutex_);
        used_ += bytes;
    }

    /// Keeps a block; returns those that are now too many, linked to each other.
    Block* give(Block* block) {
        std::lock_guard const lock(mutex_);
        used_ -= block->bytes;
        block->next = std::exchange(first_, block);
        ++count_;
        kept_ += block->bytes;
        Block* surplus = nullptr;
        while (count_ > most || kept_ > used_ + beyond) {
            Block** last = &first_;
            while ((*last)->next != nullptr) {
                last = &(*last)->next;
            }
            Block* const dropped = *last;
            remove(last);
            dropped->next = std::exchange(surplus, dropped);
        }
        return surplus;
    }

private:
    static constexpr std::size_t most = 32;
    static constexpr std::size_t beyond = std::size_t{1} << 26U; // bytes, about what the C library keeps

    void remove(Block** place) {
        kept_ -= (*place)->bytes;
        --count_;
        *place = (*place)->next;
    }

    std::mutex mutex_;
    Block* first_ = nullptr;
    std::size_t count_ = 0;
    std::size_t kept_ = 0; // bytes
    std::size_t used_ = 0; // bytes
};

Keep& keep() {
    static Immortal<Keep> keep;
    return keep.object;
}

static_assert(sizeof(Block) % alignof(std::max_align_t) == 0, "what follows must be aligned, too");

void* takeBlock(std::size_t bytes) {
    Block* block = keep().take(bytes, bytes / 4);
    if (block == nullptr) {
        block = Block::make(bytes);
        keep().use(bytes);
    }
    return block->memory();
}

void giveBlock(void* memory) {
    Block* surplus = keep().give(Block::of(memory));
    while (surplus != nullptr) {
        Block::destroy(std::exchange(surplus, surplus->next));
    }
}

void* growBlock(void* memory, std::size_t bytes, std::size_t wanted) {
    Block* const former = Block::of(memory);
    if (former->bytes >= wanted) {
        return memory; // a block that was kept may be larger than it was asked to be
    }
    // What has grown is likely to grow on: a roomy block saves moving it again.
    if (Block* const kept = keep().take(wanted, wanted)) {
        std::memcpy(kept->memory(), memory, bytes);
        giveBlock(memory);
        return kept->memory();
    }
    std::size_t const more = wanted - former->bytes;
    Block* const block = Block::grow(former, wanted);
    keep().use(more);
    return block->memory();
}

/// True for arrays that are blocks.
bool isLarge(std::size_t bytes) {
    constexpr std::size_t large = std::size_t{1} << 18U;
    return keepMemory && bytes >= large;
}

} // namespace

void* takeArray(std::size_t bytes) {
    return isLarge(bytes) ? takeBlock(bytes) : takeStorage(bytes);
}

void* growArray(void* array, std::size_t bytes, std::size_t wanted) {
    if (isLarge(bytes)) {
        return growBlock(array, bytes, wanted);
    }
    void* const grown = takeArray(wanted);
    if (bytes > 0) {
        std::memcpy(grown, array, bytes);
        giveArray(array, bytes);
    }
    return grown;
}

void giveArray(void* array, std::size_t bytes) noexcept {
    if (isLarge(bytes)) {
        giveBlock(array);
    } else {
        giveStorage(array, bytes);
    }
}

} // namespace QX
