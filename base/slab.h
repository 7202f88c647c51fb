#pragma once

#include <cstddef>
#include <cstdint>
#include <new>

namespace QX {

class Heap;

/// The storage of an object that is not in use.
struct Vacant {
    Vacant* next;
};

/// A large block that is cut into storage for objects of one size; its address is a multiple of its
/// size, and it begins with this header. Storage is handed out from the front first, so that what is
/// never needed is never touched, then as it was given back.
class Slab {
public:
    static constexpr std::size_t bytes = std::size_t{1} << 20U;

    /// The slab that `object` lies in.
    static Slab& of(void* object) {
        auto const address = reinterpret_cast<std::uintptr_t>(object) & ~(bytes - 1);
        return *reinterpret_cast<Slab*>(address); // NOLINT(performance-no-int-to-ptr)
    }
    /// Makes an empty slab; raises std::bad_alloc.
    static Slab* make() { return new (::operator new(bytes, std::align_val_t(bytes))) Slab; }
    static void destroy(Slab* slab) { ::operator delete(slab, std::align_val_t(bytes)); }

    /// Makes an empty slab the storage of objects of a size, a multiple of 16, for a heap.
    void assign(Heap& heap, std::size_t size) {
        heap_ = &heap;
        size_ = size;
        clear();
    }
    Heap& heap() const { return *heap_; }
    std::size_t size() const { return size_; }
    bool empty() const { return used_ == 0; }
    bool full() const { return given_ == nullptr && fresh_ + size_ > bytes; }
    /// Hands out storage; the slab must not be full.
    void* take() {
        ++used_;
        if (given_ != nullptr) {
            Vacant* const vacant = given_;
            given_ = vacant->next;
            return vacant;
        }
        void* const object = reinterpret_cast<std::byte*>(this) + fresh_;
        fresh_ += size_;
        return object;
    }
    void give(void* object) {
        given_ = new (object) Vacant{given_};
        --used_;
    }
    /// Forgets in what order an empty slab was emptied.
    void clear() {
        given_ = nullptr;
        fresh_ = header;
    }

    Slab* next = nullptr; ///< in a list of slabs
    Slab* previous = nullptr;

private:
    static constexpr std::size_t header = 64; // what this object takes, rounded up

    Slab() = default;

    Heap* heap_ = nullptr;
    std::size_t size_ = 0;
    std::size_t used_ = 0;
    std::size_t fresh_ = 0; // where the part begins that was never handed out
    Vacant* given_ = nullptr;
};

static_assert(sizeof(Slab) <= 64);

} // namespace QX
