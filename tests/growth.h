#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <limits>

namespace QX {

/// Expects that `work(size)` takes time about linear in `size`, whatever the speed of the machine: sixteen times the
/// work must take less than 100 times as long. A linear walk takes 16 to 30 times as long while the data are not much
/// larger than the processor's caches, a quadratic one 256 times. The two sizes take turns, and the shortest turn of
/// each counts, up to ten turns, so that a single disturbance fails nothing. Counted is the time of the processor, which
/// other programs' work adds little to.
template <typename Work>
void expectLinearTime(std::size_t size, Work const& work) {
    auto const timeOf = [&](std::size_t items) {
        std::clock_t const start = std::clock();
        work(items);
        return static_cast<double>(std::max<std::clock_t>(std::clock() - start, 1));
    };
    double few = std::numeric_limits<double>::max();
    double many = few;
    for (int turn = 0; turn < 10; ++turn) {
        few = std::min(few, timeOf(size));
        many = std::min(many, timeOf(16 * size));
        if (many < 100 * few) {
            return;
        }
    }
    ADD_FAILURE() << "16 times the work takes " << many / few << " times as long";
}

} // namespace QX
