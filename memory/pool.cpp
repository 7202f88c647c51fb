#include "memory/pool.h"

#if defined(QX_POOLING)

#include "memory/blockcache.h"
#include "memory/keeping.h"
#include "memory/threadcache.h"
#include "memory/threadlocal.h"

#include <atomic>
#include <pthread.h>

namespace QX {

namespace {

QX_TLS_INITIAL_EXEC constinit thread_local ThreadCache* threadCache = nullptr;

void endCache(void* cache) noexcept {
    threadCache = nullptr;
    auto* const ended = static_cast<ThreadCache*>(cache);
    ended->flush();
    delete ended;
}

void lockAll() {
    slabPool().lock();
    blockCache().lock();
}

void unlockAll() {
    blockCache().unlock();
    slabPool().unlock();
}

/// While it lives, threads have caches, each until its thread ends. Before and after, which is while the
/// program's other globals begin and end, storage comes from the slabs one by one.
///
/// The key rather than a thread_local's destructor: that would keep a module from being unloaded. The
/// locks are taken around a fork, so that the child finds none held by a thread that it lacks.
class Caching {
public:
    Caching() {
        if (poolingOn() && pthread_key_create(&key_, &endCache) == 0) {
            pthread_atfork(&lockAll, &unlockAll, &unlockAll);
            on_.store(true, std::memory_order_release);
        }
    }
    Caching(Caching const&) = delete;
    Caching& operator=(Caching const&) = delete;
    ~Caching() {
        if (on_.exchange(false)) {
            pthread_key_delete(key_);
            if (threadCache != nullptr) {
                endCache(threadCache);
            }
            slabPool().close();
            blockCache().close();
        }
    }

    /// Makes this thread's cache; null where it can have none.
    static ThreadCache* begin() {
        if (!on_.load(std::memory_order_acquire)) {
            return nullptr;
        }
        auto* const cache = new (std::nothrow) ThreadCache;
        if (cache != nullptr && pthread_setspecific(key_, cache) != 0) {
            delete cache;
            return nullptr;
        }
        return threadCache = cache;
    }

private:
    static inline constinit std::atomic<bool> on_ = false;
    static inline pthread_key_t key_ = 0;
};

Caching const caching;

/// Storage from the program's allocator. What is kept is given back and the request repeated before
/// std::bad_alloc is raised.
void* allocate(std::size_t size) {
    void* storage = ::operator new(size, std::nothrow);
    if (storage == nullptr && releaseKept() > 0) {
        storage = ::operator new(size, std::nothrow);
    }
    return storage != nullptr ? storage : throw std::bad_alloc();
}

bool isPooled(std::size_t size) {
    return size - 1 < largestPooled; // an array may be of no size at all
}

void* takeFirst(std::size_t size) {
    if (!poolingOn()) {
        return allocate(size);
    }
    ThreadCache* const cache = Caching::begin();
    std::size_t const sizeClass = sizeClassOf(size);
    return cache != nullptr ? cache->take(sizeClass) : slabPool().take(sizeClass, 1);
}

/// Makes no cache, since giving back must not allocate.
void giveUncached(void* storage) noexcept {
    if (poolingOn()) {
        slabPool().give(new (storage) FreeNode{nullptr});
    } else {
        ::operator delete(storage);
    }
}

} // namespace

void* takeStorage(std::size_t size) {
    if (!isPooled(size)) {
        return allocate(size);
    }
    return threadCache != nullptr ? threadCache->take(sizeClassOf(size)) : takeFirst(size);
}

void giveStorage(void* storage, std::size_t size) noexcept {
    if (!isPooled(size)) {
        ::operator delete(storage);
    } else if (threadCache != nullptr) {
        threadCache->give(sizeClassOf(size), storage);
    } else {
        giveUncached(storage);
    }
}

void settleStorage() noexcept {
    if (threadCache != nullptr) {
        threadCache->settle();
    }
}

std::size_t releaseKept() noexcept {
    if (threadCache != nullptr) {
        threadCache->flush();
    }
    return slabPool().release() + blockCache().release();
}

} // namespace QX

#endif
