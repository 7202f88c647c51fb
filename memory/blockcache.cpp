#include "memory/blockcache.h"

#include "memory/immortal.h"

#include <cstdlib>
#include <utility>

namespace QX {

namespace {

/// Gives blocks that are linked to each other back to the program's allocator.
std::size_t freeAll(Block* block) {
    std::size_t bytes = 0;
    while (block != nullptr) {
        bytes += block->bytes;
        std::free(std::exchange(block, block->next));
    }
    return bytes;
}

} // namespace

Block* BlockCache::take(std::size_t bytes, std::size_t spare) {
    std::lock_guard const lock(mutex_);
    for (Block** place = &first_; *place != nullptr; place = &(*place)->next) {
        Block const* const block = *place;
        if (block->bytes >= bytes && block->bytes - bytes <= spare) {
            return remove(place);
        }
    }
    return nullptr;
}

void BlockCache::give(Block* block) noexcept {
    Block* surplus = nullptr;
    {
        std::lock_guard const lock(mutex_);
        surplus = keep(block);
    }
    freeAll(surplus);
}

Block* BlockCache::keep(Block* block) {
    if (block->bytes > mostBytes_) {
        block->next = nullptr;
        return block;
    }
    block->next = std::exchange(first_, block);
    ++count_;
    bytes_ += block->bytes;
    Block* surplus = nullptr;
    while (count_ > mostBlocks || bytes_ > mostBytes_) {
        Block** last = &first_;
        while ((*last)->next != nullptr) {
            last = &(*last)->next;
        }
        Block* const dropped = remove(last);
        dropped->next = std::exchange(surplus, dropped);
    }
    return surplus;
}

std::size_t BlockCache::release() noexcept {
    Block* all = nullptr;
    {
        std::lock_guard const lock(mutex_);
        all = std::exchange(first_, nullptr);
        count_ = 0;
        bytes_ = 0;
    }
    return freeAll(all);
}

void BlockCache::close() noexcept {
    {
        std::lock_guard const lock(mutex_);
        mostBytes_ = 0;
    }
    release();
}

Block* BlockCache::remove(Block** place) {
    Block* const block = std::exchange(*place, (*place)->next);
    bytes_ -= block->bytes;
    --count_;
    return block;
}

BlockCache& blockCache() {
    static Immortal<BlockCache> cache; // std::mutex is no constant everywhere
    return cache.object;
}

} // namespace QX
