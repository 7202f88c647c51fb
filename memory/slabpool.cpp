#include "memory/slabpool.h"

#include "memory/immortal.h"
#include "memory/keeping.h"

#include <utility>

namespace QX {

namespace {

std::size_t destroyAll(List<Chunk>& chunks) {
    std::size_t bytes = 0;
    for (Chunk* chunk = chunks.takeAll(); chunk != nullptr;) {
        Chunk::destroy(std::exchange(chunk, chunk->next));
        bytes += Chunk::bytes;
    }
    return bytes;
}

Chunk& makeChunk() {
    Chunk* chunk = Chunk::make();
    if (chunk == nullptr && releaseKept() > 0) {
        chunk = Chunk::make();
    }
    return chunk != nullptr ? *chunk : throw std::bad_alloc();
}

} // namespace

FreeNode* SlabPool::take(std::size_t sizeClass, std::size_t count) {
    for (;;) {
        {
            std::lock_guard const lock(mutex_);
            if (FreeNode* const chain = takeHeld(sizeClass, count)) {
                return chain;
            }
        }
        Chunk& chunk = makeChunk(); // without the lock, since it may release what is kept
        std::lock_guard const lock(mutex_);
        empty_.add(chunk);
        ++emptyCount_;
    }
}

FreeNode* SlabPool::takeHeld(std::size_t sizeClass, std::size_t count) {
    Slab* slab = open_[sizeClass].first();
    if (slab == nullptr && (slab = openSlab(sizeClass)) == nullptr) {
        return nullptr;
    }
    FreeNode* chain = nullptr;
    FreeNode** end = &chain;
    for (; count > 0 && !slab->full(); --count) {
        *end = new (slab->take()) FreeNode{nullptr};
        end = &(*end)->next;
    }
    if (slab->full()) {
        open_[sizeClass].remove(*slab);
    }
    return chain;
}

Slab* SlabPool::openSlab(std::size_t sizeClass) {
    Chunk* chunk = chunks_.first();
    if (chunk == nullptr) {
        chunk = empty_.first();
        if (chunk == nullptr) {
            return nullptr;
        }
        empty_.remove(*chunk);
        --emptyCount_;
        chunks_.add(*chunk);
    }
    Slab& slab = chunk->take();
    if (chunk->full()) {
        chunks_.remove(*chunk);
    }
    slab.assign((sizeClass + 1) * sizeStep);
    open_[sizeClass].add(slab);
    return &slab;
}

void SlabPool::give(FreeNode* chain) noexcept {
    List<Chunk> surplus;
    {
        std::lock_guard const lock(mutex_);
        while (chain != nullptr) {
            giveOne(std::exchange(chain, chain->next), surplus);
        }
    }
    destroyAll(surplus);
}

void SlabPool::giveOne(void* object, List<Chunk>& surplus) {
    Slab& slab = Slab::of(object);
    List<Slab>& open = open_[sizeClassOf(slab.size())];
    if (slab.full()) {
        open.add(slab);
    }
    slab.give(object);
    if (slab.empty()) {
        open.remove(slab);
        giveSlab(slab, surplus);
    }
}

void SlabPool::giveSlab(Slab& slab, List<Chunk>& surplus) {
    Chunk& chunk = slab.chunk();
    if (chunk.full()) {
        chunks_.add(chunk);
    }
    chunk.give(slab);
    if (chunk.empty()) {
        chunks_.remove(chunk);
        if (emptyCount_ < mostEmpty_) {
            empty_.add(chunk);
            ++emptyCount_;
        } else {
            surplus.add(chunk);
        }
    }
}

std::size_t SlabPool::release() noexcept {
    List<Chunk> all;
    {
        std::lock_guard const lock(mutex_);
        all = std::exchange(empty_, List<Chunk>());
        emptyCount_ = 0;
    }
    return destroyAll(all);
}

void SlabPool::close() noexcept {
    {
        std::lock_guard const lock(mutex_);
        mostEmpty_ = 0;
    }
    release();
}

SlabPool& slabPool() {
    static Immortal<SlabPool> pool; // std::mutex is no constant everywhere
    return pool.object;
}

} // namespace QX
