#pragma once

#include "answer.h"

#include <benchmark/benchmark.h>
#include <cstddef>
#include <ctime>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Bench {

/// What of a piece of work is timed: making its result, dropping it, or both.
enum class Timed { Both, Making, Dropping };

/// The processor time of this thread, in seconds: what other programs do meanwhile does not count.
inline double seconds() {
    std::timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// A piece of work on data of one size, everything that it needs made beforehand.
struct Job {
    std::function<double(Timed)> run; ///< does the work once; the seconds that it took
    std::function<Answer()> answer;   ///< does it once more and tells what came out
};

/// The job of calling `work`, whose result `look` turns into an answer.
template <typename Work, typename Look>
Job job(Work work, Look look) {
    auto const run = [work](Timed timed) {
        double const start = seconds();
        auto result = std::make_optional(work());
        benchmark::DoNotOptimize(result);
        double const made = seconds();
        result.reset();
        double const end = seconds();
        return (timed == Timed::Making ? made : end) - (timed == Timed::Dropping ? made : start);
    };
    return {run, [work, look] { return look(work()); }};
}

/// Prepares a job on n items.
using Prepare = std::function<Job(std::size_t n)>;

/// One thing to do, by QX and by those that people would use instead.
struct Workload {
    std::string name; ///< "family/name", without another slash
    std::size_t n;    ///< the smaller of its two sizes; the other is four times that
    Prepare qx;
    std::vector<std::pair<char const*, Prepare>> peers;
    Timed timed = Timed::Both;
};

/// Keeps a workload to be run.
void add(Workload workload);

/// What `make` makes of n, made once for each place in the source that asks and kept.
template <typename Make>
auto const& once(std::size_t n, Make make) {
    static std::map<std::size_t, decltype(make())> kept;
    auto found = kept.find(n);
    if (found == kept.end()) {
        found = kept.emplace(n, make()).first;
    }
    return found->second;
}

} // namespace Bench
