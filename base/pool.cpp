#include "base/pool.h"

#if defined(QX_POOL)

#include "base/immortal.h"
#include "base/slab.h"
#include "base/threadlocal.h"

#include <array>
#include <atomic>
#include <mutex>

namespace QX {

namespace {

constexpr std::size_t granule = 16;  // objects whose sizes round up to one multiple share slabs
constexpr std::size_t largest = 256; // larger ones are left to the global operator new

bool isPooled(std::size_t size) {
    return size - 1 < largest; // an array may be of no size at all
}

/// The empty slabs that the program keeps to use them again.
class Depot {
public:
    Slab* take() {
        {
            std::lock_guard const lock(mutex_);
            if (kept_ != nullptr) {
                --count_;
                Slab* const slab = kept_;
                kept_ = slab->next;
                return slab;
            }
        }
        return Slab::make();
    }

    void give(Slab* slab) {
        {
            std::lock_guard const lock(mutex_);
            if (count_ < most) {
                ++count_;
                slab->next = kept_;
                kept_ = slab;
                return;
            }
        }
        Slab::destroy(slab);
    }

private:
    static constexpr std::size_t most = 32;

    std::mutex mutex_;
    Slab* kept_ = nullptr;
    std::size_t count_ = 0;
};

Depot& depot() {
    static Immortal<Depot> depot;
    return depot.object;
}

} // namespace

/// The slabs of one thread. When the thread ends, its heap waits for another thread to take it over;
/// until then whoever gives back an object of it does so under a lock.
class Heap {
public:
    void* take(std::size_t size) {
        Room& room = roomFor(size);
        if (room.first == nullptr) {
            addRoom(room, size);
        }
        Slab& slab = *room.first;
        void* const object = slab.take();
        if (slab.full()) {
            room.remove(slab);
        }
        return object;
    }

    /// Gives back an object of one of these slabs, on the heap's own thread.
    void give(Slab& slab, void* object) {
        Room& room = roomFor(slab.size());
        if (slab.full()) {
            room.add(slab);
        }
        slab.give(object);
        if (slab.empty()) {
            if (room.onlyOne()) {
                slab.clear();
            } else {
                room.remove(slab);
                depot().give(&slab);
            }
        }
    }

    /// Gives back an object of one of these slabs, on another thread.
    void giveFromOutside(void* object) {
        auto* const vacant = new (object) Vacant{outside_.load(std::memory_order_relaxed)};
        while (!outside_.compare_exchange_weak(vacant->next, vacant, std::memory_order_release,
                                               std::memory_order_relaxed)) {
        }
    }

    /// Takes in what other threads have given back.
    void collect() {
        Vacant* vacant = outside_.exchange(nullptr, std::memory_order_acquire);
        while (vacant != nullptr) {
            Vacant* const rest = vacant->next;
            give(Slab::of(vacant), vacant);
            vacant = rest;
        }
    }

    std::atomic<bool> waiting = false; ///< no thread owns this heap; changes under the lock of Heaps
    Heap* next = nullptr;              ///< among the waiting heaps

private:
    /// The slabs of one size that are not full.
    struct Room {
        Slab* first = nullptr;

        bool onlyOne() const { return first->next == nullptr; }
        void add(Slab& slab) {
            slab.next = first;
            slab.previous = nullptr;
            if (first != nullptr) {
                first->previous = &slab;
            }
            first = &slab;
        }
        void remove(Slab& slab) {
            (slab.previous == nullptr ? first : slab.previous->next) = slab.next;
            if (slab.next != nullptr) {
                slab.next->previous = slab.previous;
            }
        }
    };

    Room& roomFor(std::size_t size) { return rooms_[(size - 1) / granule]; }

    void addRoom(Room& room, std::size_t size) {
        collect();
        if (room.first == nullptr) {
            Slab* const slab = depot().take();
            slab->assign(*this, (size + granule - 1) / granule * granule);
            room.add(*slab);
        }
    }

    std::array<Room, largest / granule> rooms_;
    std::atomic<Vacant*> outside_ = nullptr;
};

namespace {

/// The heaps that no thread owns.
class Heaps {
public:
    Heap* take() {
        std::lock_guard const lock(mutex_);
        return takeWaiting();
    }

    void give(Heap* heap) {
        std::lock_guard const lock(mutex_);
        addWaiting(heap);
    }

    /// Gives back an object of a waiting heap; false when a thread has taken it over meanwhile.
    bool giveTo(Heap& heap, Slab& slab, void* object) {
        std::lock_guard const lock(mutex_);
        if (heap.waiting) {
            heap.collect();
            heap.give(slab, object);
            return true;
        }
        return false;
    }

    /// Takes storage for a thread that is past having a heap.
    void* takeObject(std::size_t size) {
        std::lock_guard const lock(mutex_);
        Heap* const heap = takeWaiting();
        addWaiting(heap);
        return heap->take(size);
    }

private:
    Heap* takeWaiting() {
        if (first_ == nullptr) {
            return new Heap;
        }
        Heap* const heap = first_;
        first_ = heap->next;
        heap->waiting = false;
        heap->collect();
        return heap;
    }

    void addWaiting(Heap* heap) {
        heap->collect();
        heap->waiting = true;
        heap->next = first_;
        first_ = heap;
    }

    std::mutex mutex_;
    Heap* first_ = nullptr;
};

Heaps& heaps() {
    static Immortal<Heaps> heaps;
    return heaps.object;
}

QX_SET_ASIDE constinit thread_local Heap* own = nullptr;
QX_SET_ASIDE constinit thread_local bool ended = false;

/// Ends with the thread, whose heap it then leaves to others.
struct Lease {
    ~Lease() {
        ended = true;
        heaps().give(own);
        own = nullptr;
    }
};

void* takeFirst(std::size_t size) {
    if (ended) {
        return heaps().takeObject(size);
    }
    own = heaps().take();
    thread_local Lease const lease;
    return own->take(size);
}

} // namespace

void* takeStorage(std::size_t size) {
    if (!isPooled(size)) {
        return ::operator new(size);
    }
    return own != nullptr ? own->take(size) : takeFirst(size);
}

void giveStorage(void* storage, std::size_t size) noexcept {
    if (!isPooled(size)) {
        ::operator delete(storage);
        return;
    }
    Slab& slab = Slab::of(storage);
    Heap& heap = slab.heap();
    if (&heap == own) {
        heap.give(slab, storage);
    } else if (!heap.waiting || !heaps().giveTo(heap, slab, storage)) {
        heap.giveFromOutside(storage);
    }
}

} // namespace QX

#endif
