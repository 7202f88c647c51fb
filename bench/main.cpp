#include "families.h"
#include "interlude.h"
#include "workload.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>
#include <pugixml.hpp>
#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <iostream>
#include <memory>

namespace Bench {

namespace {

std::vector<Workload>& workloads() {
    static std::vector<Workload> all;
    return all;
}

std::size_t const checkedSize = 256;

/// Says on standard error if a peer's answer is not that of QX.
bool agrees(Workload const& workload, char const* peer, Answer const& ours, Answer const& theirs) {
    if (ours == theirs) {
        return true;
    }
    std::cerr << workload.name << ": QX has " << ours.rows << " rows, sum " << ours.sum << "; " << peer
              << " has " << theirs.rows << ", sum " << theirs.sum << '\n';
    return false;
}

/// Runs every job once on little data and compares the answers; false when some differ.
bool check() {
    bool sound = true;
    std::size_t peers = 0;
    for (Workload const& workload : workloads()) {
        std::size_t const n = std::min(workload.n, checkedSize);
        Job const job = workload.qx(n);
        job.run(workload.timed);
        Answer const answer = job.answer();
        for (auto const& [peer, prepare] : workload.peers) {
            Job const theirs = prepare(n);
            theirs.run(workload.timed);
            sound = agrees(workload, peer, answer, theirs.answer()) && sound;
            ++peers;
        }
    }
    std::cout << workloads().size() << " workloads, " << peers << " of peers: answers "
              << (sound ? "agree" : "differ") << '\n';
    return sound;
}

/// One workload at one size. What its jobs need is made when they are first run, and kept.
class Case {
public:
    Case(Workload const& workload, std::size_t n) : workload_(workload), n_(n) {}

    void runQx(benchmark::State& state) { measure(state, qx()); }
    void runPeer(benchmark::State& state, std::size_t which) {
        auto const& [peer, prepare] = workload_.peers[which];
        auto found = peers_.find(which);
        if (found == peers_.end()) {
            found = peers_.emplace(which, prepare(n_)).first;
            if (!agrees(workload_, peer, answer(), found->second.answer())) {
                state.SkipWithError("the answer is not that of QX");
            }
        }
        measure(state, found->second);
    }

private:
    void measure(benchmark::State& state, Job const& job) {
        for ([[maybe_unused]] auto const& iteration : state) {
            interlude();
            state.SetIterationTime(job.run(workload_.timed));
        }
        state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(n_));
    }
    Job const& qx() {
        if (!qx_) {
            qx_ = workload_.qx(n_);
        }
        return *qx_;
    }
    Answer const& answer() {
        if (!answer_) {
            answer_ = qx().answer();
        }
        return *answer_;
    }

    Workload const& workload_;
    std::size_t n_;
    std::optional<Job> qx_;
    std::optional<Answer> answer_;
    std::map<std::size_t, Job> peers_;
};

void announce(std::string const& name, std::function<void(benchmark::State&)> const& run) {
    benchmark::RegisterBenchmark(name.c_str(), run)->UseManualTime()->Unit(benchmark::kMillisecond);
}

void announceAll() {
    for (Workload const& workload : workloads()) {
        for (std::size_t const n : {workload.n, 4 * workload.n}) {
            auto const held = std::make_shared<Case>(workload, n);
            std::string const size = '/' + std::to_string(n);
            announce(workload.name + "/qx" + size,
                     [held](benchmark::State& state) { held->runQx(state); });
            for (std::size_t i = 0; i < workload.peers.size(); ++i) {
                announce(workload.name + '/' + workload.peers[i].first + size,
                         [held, i](benchmark::State& state) { held->runPeer(state, i); });
            }
        }
    }
}

/// Notes with the numbers what they were measured with.
void noteVersions() {
    std::string const pugixml =
        std::to_string(PUGIXML_VERSION / 1000) + '.' + std::to_string(PUGIXML_VERSION / 10 % 100);
    std::string const json = std::to_string(NLOHMANN_JSON_VERSION_MAJOR) + '.' +
                             std::to_string(NLOHMANN_JSON_VERSION_MINOR) + '.' +
                             std::to_string(NLOHMANN_JSON_VERSION_PATCH);
    benchmark::AddCustomContext("compiler", __VERSION__);
    benchmark::AddCustomContext("sqlite", sqlite3_libversion());
    benchmark::AddCustomContext("json", json);
    benchmark::AddCustomContext("pugixml", pugixml);
}

} // namespace

void add(Workload workload) {
    workloads().push_back(std::move(workload));
}

} // namespace Bench

/// With --check runs everything once on little data and compares the answers; otherwise measures, under
/// the options of Google Benchmark. The names are FAMILY/NAME/SIDE/SIZE; no part has a slash of its own.
int main(int argc, char** argv) {
    Bench::addAll();
    if (argc == 2 && std::strcmp(argv[1], "--check") == 0) {
        return Bench::check() ? 0 : 1;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    Bench::noteVersions();
    Bench::announceAll();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
