#include "base/blocks.h"

#include "base/immortal.h"

#include <cstddef>
#include <mutex>
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
        return new (::operator new(sizeof(Block) + bytes)) Block{bytes, nullptr};
    }
    static void destroy(Block* block) { ::operator delete(block); }
};

/// The blocks of the program that are kept, the last one given back first.
class Keep {
public:
    Block* take(std::size_t bytes) {
        std::lock_guard const lock(mutex_);
        for (Block** place = &first_; *place != nullptr; place = &(*place)->next) {
            Block* const block = *place;
            if (block->bytes >= bytes && block->bytes - bytes <= bytes / 4) {
                remove(place);
                used_ += block->bytes;
                return block;
            }
        }
        return nullptr;
    }

    void use(Block const& block) {
        std::lock_guard const lock(mutex_);
        used_ += block.bytes;
    }

    /// Keeps a block; returns those that are now too many, linked to each other.
    Block* give(Block* block) {
        std::lock_guard const lock(mutex_);
        used_ -= block->bytes;
        block->next = std::exchange(first_, block);
        ++count_;
        kept_ += block->bytes;
        Block* surplus = nullptr;
        while (count_ > most || kept_ > used_) {
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

} // namespace

void* takeBlock(std::size_t bytes) {
    if (Block* const kept = keep().take(bytes)) {
        return kept->memory();
    }
    if (bytes > std::numeric_limits<std::size_t>::max() - sizeof(Block)) {
        throw std::bad_alloc();
    }
    Block* const block = Block::make(bytes);
    keep().use(*block);
    return block->memory();
}

void giveBlock(void* block) noexcept {
    Block* surplus = keep().give(Block::of(block));
    while (surplus != nullptr) {
        Block::destroy(std::exchange(surplus, surplus->next));
    }
}

} // namespace QX
