#pragma once

#include "memory/slabpool.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace QX {

/// Storage that a thread has taken from the slabs, or was given, and hands out again without a lock.
///
/// Few at first, so that a thread with one small table takes no more than it needs: the number that it
/// exchanges with the slabs doubles each time up to 32, and it keeps twice that of each size class.
class ThreadCache {
public:
    void* take(std::size_t sizeClass) {
        Bin& bin = bins_[sizeClass];
        if (bin.first == nullptr) {
            refill(bin, sizeClass);
        }
        --bin.count;
        return std::exchange(bin.first, bin.first->next);
    }
    void give(std::size_t sizeClass, void* storage) noexcept {
        Bin& bin = bins_[sizeClass];
        bin.first = new (storage) FreeNode{bin.first};
        if (++bin.count > 2 * bin.batch) {
            returnSome(bin);
        }
    }
    /// Gives everything back to the slabs.
    void flush() noexcept;
    /// The same if much went back since: what is left of objects that lay anywhere would keep the memory
    /// around it from being given back.
    void settle() noexcept {
        constexpr std::uint32_t many = 32;
        if (returned_ >= many) {
            flush();
        }
    }

private:
    struct Bin {
        FreeNode* first = nullptr;
        std::uint32_t count = 0;
        std::uint32_t batch = 4;
    };

    static void refill(Bin& bin, std::size_t sizeClass);
    void returnSome(Bin& bin) noexcept;

    std::array<Bin, sizeClasses> bins_;
    std::uint32_t returned_ = 0; // batches, since this was flushed
};

} // namespace QX
