#include "base/pages.h"

#include <cstdint>
#include <cstdlib>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#include <unistd.h>

// A leak checker looks into such memory only if it is told to; null where the program has none.
extern "C" {
[[gnu::weak]] void __lsan_register_root_region(void const* begin, std::size_t bytes);   // NOLINT
[[gnu::weak]] void __lsan_unregister_root_region(void const* begin, std::size_t bytes); // NOLINT
}
#endif

namespace QX {

#if defined(__linux__)

namespace {

void show(void const* memory, std::size_t bytes) {
    if (__lsan_register_root_region != nullptr) {
        __lsan_register_root_region(memory, bytes);
    }
}

void hide(void const* memory, std::size_t bytes) {
    if (__lsan_unregister_root_region != nullptr) {
        __lsan_unregister_root_region(memory, bytes);
    }
}

void* shown(void* memory, std::size_t bytes) {
    if (memory == MAP_FAILED) {
        throw std::bad_alloc();
    }
    show(memory, bytes);
    return memory;
}

} // namespace

void* takePages(std::size_t bytes) {
    return shown(mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0),
                 bytes);
}

void* growPages(void* memory, std::size_t bytes, std::size_t wanted) {
    void* const grown = shown(mremap(memory, bytes, wanted, MREMAP_MAYMOVE), wanted);
    hide(memory, bytes);
    return grown;
}

void givePages(void* memory, std::size_t bytes) noexcept {
    hide(memory, bytes);
    munmap(memory, bytes);
}

void readyPages(void* memory, std::size_t bytes) noexcept {
    static auto const page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    auto const address = reinterpret_cast<std::uintptr_t>(memory);
    std::uintptr_t const before = address % page;
    constexpr int populateForWriting = 23; // MADV_POPULATE_WRITE, which systems before 5.14 refuse
    madvise(static_cast<std::byte*>(memory) - before, bytes + before, populateForWriting);
}

#else

namespace {

void* checked(void* memory) {
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

} // namespace

void* takePages(std::size_t bytes) {
    return checked(std::malloc(bytes));
}

void* growPages(void* memory, std::size_t /*bytes*/, std::size_t wanted) {
    return checked(std::realloc(memory, wanted));
}

void givePages(void* memory, std::size_t /*bytes*/) noexcept {
    std::free(memory);
}

void readyPages(void* /*memory*/, std::size_t /*bytes*/) noexcept {
}

#endif

} // namespace QX
