#include "memory/threadcache.h"

#include <algorithm>
#include <utility>

namespace QX {

namespace {

std::uint32_t enlarged(std::uint32_t batch) {
    constexpr std::uint32_t most = 32; // as quick as any more, and so much less that is kept
    return std::min(2 * batch, most);
}

} // namespace

void ThreadCache::refill(Bin& bin, std::size_t sizeClass) {
    bin.first = slabPool().take(sizeClass, bin.batch);
    std::uint32_t count = 0;
    for (FreeNode const* node = bin.first; node != nullptr; node = node->next) {
        ++count;
    }
    bin.count = count;
    bin.batch = enlarged(bin.batch);
}

void ThreadCache::returnSome(Bin& bin) noexcept {
    FreeNode* last = bin.first;
    for (std::uint32_t k = 1; k < bin.batch; ++k) {
        last = last->next;
    }
    FreeNode* const returned = std::exchange(bin.first, std::exchange(last->next, nullptr));
    bin.count -= bin.batch;
    bin.batch = enlarged(bin.batch);
    ++returned_;
    slabPool().give(returned);
}

void ThreadCache::flush() noexcept {
    returned_ = 0;
    for (Bin& bin : bins_) {
        if (bin.first != nullptr) {
            bin.count = 0;
            slabPool().give(std::exchange(bin.first, nullptr));
        }
    }
}

} // namespace QX
