// Makes every large request for memory fail as on a small machine, so that enormous positions and counts
// in an input raise std::bad_alloc instead of ending the run.

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t largest = std::size_t{1} << 26U;

} // namespace

void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
    return size > largest ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* operator new(std::size_t size) {
    void* const memory = operator new(size, std::nothrow);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
