#pragma once

#include "memory/list.h"
#include "memory/slab.h"

#include <cstddef>
#include <cstdint>
#include <new>

namespace QX {

/// Memory from the program's allocator that is cut into slabs; begins with this header.
class Chunk {
public:
    static constexpr std::size_t bytes = (std::size_t{1} << 18U) - 64; // with what an allocator adds

    /// Makes a chunk of empty slabs; null where there is no memory.
    static Chunk* make() {
        void* const memory = ::operator new(bytes, std::nothrow);
        return memory == nullptr ? nullptr : new (memory) Chunk;
    }
    static void destroy(Chunk* chunk) { ::operator delete(chunk); }

    bool empty() const { return live_ == 0; }
    bool full() const { return given_.first() == nullptr && fresh_ + Slab::used > end(); }
    /// Hands out a slab; the chunk must not be full.
    Slab& take() {
        ++live_;
        if (Slab* const slab = given_.first()) {
            given_.remove(*slab);
            return *slab;
        }
        auto* const memory = reinterpret_cast<void*>(fresh_); // NOLINT(performance-no-int-to-ptr)
        fresh_ += Slab::bytes;
        return *new (memory) Slab(*this);
    }
    void give(Slab& slab) {
        given_.add(slab);
        --live_;
    }

    Chunk* next = nullptr; ///< in a list of chunks
    Chunk* previous = nullptr;

private:
    Chunk() {
        fresh_ = (reinterpret_cast<std::uintptr_t>(this + 1) + Slab::bytes - 1) & ~(Slab::bytes - 1);
    }

    std::uintptr_t end() const { return reinterpret_cast<std::uintptr_t>(this) + bytes; }

    List<Slab> given_;
    std::uintptr_t fresh_; // where the slabs begin that were never handed out
    std::size_t live_ = 0;
};

} // namespace QX
