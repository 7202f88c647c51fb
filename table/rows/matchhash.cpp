#include "table/rows/matchhash.h"

#include <chrono>
#include <exception>
#include <random>

namespace QX {

namespace {

std::uint64_t randomWord() {
    try {
        std::random_device source;
        return std::uint64_t{source()} << 32U | source();
    } catch (std::exception const&) {
        // A system without a source of randomness: what differs from process to process has to do.
        int const local = 0;
        auto const time = std::chrono::steady_clock::now().time_since_epoch().count();
        return static_cast<std::uint64_t>(time) * 0x9E3779B97F4A7C15U ^
               reinterpret_cast<std::uintptr_t>(&local);
    }
}

} // namespace

MatchHash const& MatchHash::ofProcess() {
    static MatchHash const hash = fresh();
    return hash;
}

MatchHash MatchHash::fresh() {
    std::uint64_t const first = randomWord();
    return {first, randomWord() | 1U};
}

} // namespace QX
