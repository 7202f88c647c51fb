#include "memory/blocks.h"

#include "memory/blockcache.h"
#include "memory/keeping.h"
#include "memory/pool.h"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

namespace QX {

namespace {

/// What realloc or, for a null block, malloc says; what is kept is given back where there is no memory.
Block* resized(Block* block, std::size_t bytes) {
    if (bytes > std::numeric_limits<std::size_t>::max() / 2) {
        throw std::bad_alloc();
    }
    void* memory = std::realloc(block, sizeof(Block) + bytes);
    if (memory == nullptr && releaseKept() > 0) {
        memory = std::realloc(block, sizeof(Block) + bytes);
    }
    return memory != nullptr ? new (memory) Block{bytes, nullptr} : throw std::bad_alloc();
}

void* takeBlock(std::size_t bytes, std::size_t spare) {
    Block* const kept = blockCache().take(bytes, spare);
    return (kept != nullptr ? kept : resized(nullptr, bytes))->memory();
}

void* growBlock(void* memory, std::size_t bytes, std::size_t wanted) {
    Block* const former = Block::of(memory);
    if (former->bytes >= wanted) {
        return memory; // a block that was kept may be larger than it was asked to be
    }
    // What has grown is likely to grow on: a roomy block saves moving it again.
    if (Block* const kept = blockCache().take(wanted, wanted)) {
        std::memcpy(kept->memory(), memory, bytes);
        blockCache().give(former);
        return kept->memory();
    }
    return resized(former, wanted)->memory();
}

/// True for arrays that are blocks.
bool isLarge(std::size_t bytes) {
    constexpr std::size_t large = std::size_t{1} << 18U;
    return bytes >= large && poolingOn();
}

} // namespace

void* takeArray(std::size_t bytes) {
    return isLarge(bytes) ? takeBlock(bytes, bytes / 4) : takeStorage(bytes);
}

void* takeScratch(std::size_t bytes) {
    return isLarge(bytes) ? takeBlock(bytes, bytes) : takeStorage(bytes);
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
        blockCache().give(Block::of(array));
    } else {
        giveStorage(array, bytes);
    }
}

} // namespace QX
