#include "memory/pooling.h"

#if defined(QX_POOLING)

#include <atomic>
#include <cstdlib>
#include <cstring>

#if defined(__ELF__)
// Where a sanitizer's run-time library is part of the process; null elsewhere.
extern "C" {
[[gnu::weak]] void __asan_init();   // NOLINT
[[gnu::weak]] void __hwasan_init(); // NOLINT
[[gnu::weak]] void __lsan_init();   // NOLINT
[[gnu::weak]] void __msan_init();   // NOLINT
[[gnu::weak]] void __tsan_init();   // NOLINT
}
#endif

namespace QX {

namespace {

bool underSanitizer() {
#if defined(__ELF__)
    return __asan_init != nullptr || __hwasan_init != nullptr || __lsan_init != nullptr ||
           __msan_init != nullptr || __tsan_init != nullptr;
#else
    return false;
#endif
}

bool underValgrind() {
    char const* const preloaded = std::getenv("LD_PRELOAD"); // by which it gets into the process
    return preloaded != nullptr && std::strstr(preloaded, "vgpreload") != nullptr;
}

bool wanted() {
    char const* const setting = std::getenv("QX_POOLING");
    if (setting != nullptr && *setting != '\0') {
        return std::strcmp(setting, "0") != 0;
    }
    return !underSanitizer() && !underValgrind();
}

enum class Decision { None, On, Off };

constinit std::atomic<Decision> decision = Decision::None;

} // namespace

bool poolingOn() noexcept {
    Decision made = decision.load(std::memory_order_relaxed);
    if (made == Decision::None) {
        Decision const mine = wanted() ? Decision::On : Decision::Off;
        if (decision.compare_exchange_strong(made, mine, std::memory_order_relaxed)) {
            made = mine;
        }
    }
    return made == Decision::On;
}

} // namespace QX

#endif
