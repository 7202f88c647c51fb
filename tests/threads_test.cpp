#include "scenarios.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace QX {
namespace {

/// Hands things over from one thread to another.
template <typename T>
class Queue {
public:
    void push(T item) {
        std::lock_guard<std::mutex> const lock(mutex_);
        items_.push_back(std::move(item));
        filled_.notify_one();
    }
    /// Waits until there is something to take.
    T pop() {
        std::unique_lock<std::mutex> lock(mutex_);
        filled_.wait(lock, [&] { return !items_.empty(); });
        T item = std::move(items_.front());
        items_.pop_front();
        return item;
    }

private:
    std::mutex mutex_;
    std::condition_variable filled_;
    std::deque<T> items_;
};

using Threads = std::vector<std::thread>;

void join(Threads& threads) {
    for (std::thread& thread : threads) {
        thread.join();
    }
    threads.clear();
}

using Outcomes = std::vector<std::string>;

void runOn(Objects& objects, Scenario const& scenario) {
    try {
        scenario.run(objects);
    } catch (Except const& except) { // after another scenario the shapes may differ
        objects.found += outcome(except.report());
    }
}

/// The outcomes of all scenarios.
Outcomes outcomes() {
    Outcomes all;
    for (Scenario const& scenario : scenarios()) {
        Objects objects(scenario.looksUp);
        runOn(objects, scenario);
        all.push_back(objects.outcome());
    }
    return all;
}

TEST(Threads, WithTablesOfTheirOwnDontDisturbEachOther) {
    std::vector<Outcomes> found(4);
    Threads threads;
    for (Outcomes& each : found) {
        threads.emplace_back([&each] { each = outcomes(); });
    }
    join(threads);
    Outcomes const alone = outcomes(); // last, so that the threads were the first to use the library
    for (Outcomes const& each : found) {
        EXPECT_EQ(each, alone);
    }
}

TEST(Threads, HandEverythingOver) {
    struct Handed {
        std::size_t next; // the scenario that the receiver runs
        std::unique_ptr<Objects> objects;
    };
    std::vector<Scenario> const all = scenarios();
    auto const begun = [&all](std::size_t k) {
        auto objects = std::make_unique<Objects>();
        runOn(*objects, all[k]);
        return Handed{(k + 1) % all.size(), std::move(objects)};
    };
    auto const finished = [&all](Handed const& handed) {
        runOn(*handed.objects, all[handed.next]);
        return handed.objects->outcome();
    };
    constexpr std::size_t count = 3;
    std::vector<Queue<Handed>> queues(count); // in a ring, each to the next thread
    std::vector<Outcomes> found(count);
    Threads threads;
    for (std::size_t t = 0; t < count; ++t) {
        threads.emplace_back([&, t] {
            for (std::size_t k = 0; k < all.size(); ++k) {
                queues[(t + 1) % count].push(begun(k));
                found[t].push_back(finished(queues[t].pop()));
            }
        });
    }
    join(threads);
    Outcomes alone;
    for (std::size_t k = 0; k < all.size(); ++k) {
        alone.push_back(finished(begun(k)));
    }
    for (Outcomes const& each : found) {
        EXPECT_EQ(each, alone);
    }
}

constexpr int indices = 4;
constexpr int items = 300;

Cell manyKinds(int seed) {
    switch (seed % 4) {
    case 0:
        return {double(seed)};
    case 1:
        return {Str("text ") + Str::asString(seed)};
    case 2:
        return seed % 3 == 0 ? Cell(brief("X 1 2 | Y {n Z 3 }")) : Cell(seed / 3.0);
    default:
        return {Status(Str::asString(seed), Status::Error, -1)};
    }
}

/// Stores new cells in every `step`-th item.
void store(Table& table, int seed, int step) {
    for (int i = 0; i < indices; ++i) {
        for (int j = 0; j < items; j += step) {
            table.at(i, static_cast<std::size_t>(j), manyKinds(seed + i + j));
        }
    }
}

Ptr<Table> built(int seed) {
    Ptr<Table> table(new Table("large"));
    store(*table, seed, 1);
    return table;
}

/// What another thread does with a table: replaces cells by its own and shares the others on.
void change(Ptr<Table>& table, int seed) {
    store(*table, seed, 3);
    Ptr<Table> const own = built(seed + 1);
    (void)table->merge(own, table, false);
}

TEST(Threads, ReleaseTablesOfThreadsThatHaveEnded) {
    constexpr int rounds = 10;
    Queue<Ptr<Table>> queues[2];
    Queue<Ptr<Table>> changed;
    Threads threads;
    for (int t = 0; t < 2; ++t) {
        threads.emplace_back([&, t] {
            for (int round = 0; round < rounds; ++round) {
                queues[1 - t].push(built(round));
            }
            for (int round = 0; round < rounds; ++round) {
                Ptr<Table> table = queues[t].pop();
                change(table, 2 * round);
                changed.push(std::move(table));
            }
        });
    }
    join(threads);
    Outcomes found;
    threads.emplace_back([&] {
        for (int n = 0; n < 2 * rounds; ++n) {
            Ptr<Table> const table = changed.pop();
            found.push_back(shown(*table));
            store(*table, n, 2);
        }
    });
    join(threads);
    Outcomes alone;
    for (int n = 0; n < 2 * rounds; ++n) {
        Ptr<Table> table = built(n / 2);
        change(table, n / 2 * 2);
        alone.push_back(shown(*table));
    }
    std::sort(found.begin(), found.end());
    std::sort(alone.begin(), alone.end());
    EXPECT_EQ(found, alone);
}

} // namespace
} // namespace QX
