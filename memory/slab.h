#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

namespace QX {

class Chunk;

/// The storage of an object that is not in use.
struct FreeNode {
    FreeNode* next;
};

/// A part of a chunk that is cut into storage for objects of one size; its address is a multiple of
/// `bytes`, and it begins with this header. Storage is handed out from the front first, so that what is
/// never needed is never touched, then as it was given back.
class Slab {
public:
    static constexpr std::size_t bytes = std::size_t{1} << 14U;
    static constexpr std::size_t used = bytes - 64; // what lies behind is not the slab's

    explicit Slab(Chunk& chunk) : chunk_(&chunk) {}

    /// The slab that `object` lies in.
    static Slab& of(void* object) {
        auto const address = reinterpret_cast<std::uintptr_t>(object) & ~(bytes - 1);
        return *reinterpret_cast<Slab*>(address); // NOLINT(performance-no-int-to-ptr)
    }

    /// Makes an empty slab the storage of objects of a size, a multiple of 16.
    void assign(std::size_t size) {
        size_ = size;
        given_ = nullptr;
        fresh_ = header;
    }
    Chunk& chunk() const { return *chunk_; }
    std::size_t size() const { return size_; }
    bool empty() const { return live_ == 0; }
    bool full() const { return given_ == nullptr && fresh_ + size_ > used; }
    /// Hands out storage; the slab must not be full.
    void* take() {
        ++live_;
        if (given_ != nullptr) {
            return std::exchange(given_, given_->next);
        }
        return reinterpret_cast<std::byte*>(this) + std::exchange(fresh_, fresh_ + size_);
    }
    void give(void* object) {
        given_ = new (object) FreeNode{given_};
        --live_;
    }

    Slab* next = nullptr; ///< in a list of slabs
    Slab* previous = nullptr;

private:
    static constexpr std::size_t header = 64; // keeps objects of 64 bytes within a cache line

    Chunk* chunk_;
    FreeNode* given_ = nullptr;
    std::size_t size_ = 0;
    std::size_t live_ = 0;
    std::size_t fresh_ = 0; // where the part begins that was never handed out
};

static_assert(sizeof(Slab) <= 64);

} // namespace QX
