// qx_soak WORK [COUNT]: long work, and what memory it takes on the way. It should level off.
//
//   handover COUNT   tables go from one thread to another, which drops them
//   threads COUNT    short threads, each with tables of its own
//   random SECONDS   three threads make, change, hand over and drop tables of any size
//   idle COUNT       threads that are alive at once, each with one small table

#include <qx/qx.h>

#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <fstream>
#include <latch>
#include <map>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using QX::Cell;
using QX::Ptr;
using QX::Str;
using QX::Table;

struct Memory {
    double addresses;
    double resident;
};

/// The memory of this process, in MB.
Memory memory() {
    double addresses = 0;
    double resident = 0;
    std::ifstream("/proc/self/statm") >> addresses >> resident;
    double const page = static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
    return {addresses * page, resident * page};
}

void tell(char const* what, std::size_t count) {
    std::printf("%12zu %-8s %8.1f MB\n", count, what, memory().resident);
    std::fflush(stdout);
}

Ptr<Table> filled(std::size_t rows, std::size_t seed) {
    Ptr<Table> table(new Table("filled"));
    for (std::size_t j = 0; j < rows; ++j) {
        int const number = static_cast<int>((j + 1) * seed % 100'003);
        table->at(std::size_t{0}, j, Cell(number));
        table->at(1, j, Cell(Str("a text that is too long for a cell ") + Str::asString(number)));
        if (j % 4 == 0) {
            Ptr<Table> nested(new Table("nested"));
            nested->at(std::size_t{0}, 0, Cell(number));
            table->at(2, j, Cell(nested));
        }
    }
    return table;
}

/// Tables on the way from one thread to another; whoever adds one too many waits.
class Queue {
public:
    void push(Ptr<Table> table) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return tables_.size() < 100; });
        tables_.push_back(std::move(table));
        changed_.notify_all();
    }
    Ptr<Table> pop() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return !tables_.empty(); });
        Ptr<Table> table = std::move(tables_.front());
        tables_.pop_front();
        changed_.notify_all();
        return table;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Ptr<Table>> tables_;
};

void handOver(std::size_t count) {
    Queue queue;
    std::thread producer([&] {
        for (std::size_t k = 0; k < count; ++k) {
            queue.push(filled(20, k));
        }
    });
    for (std::size_t k = 1; k <= count; ++k) {
        queue.pop().reset();
        if (k % (count / 10) == 0) {
            tell("tables", k);
        }
    }
    producer.join();
}

void shortThreads(std::size_t count) {
    for (std::size_t k = 0; k < count;) {
        std::vector<std::thread> threads;
        for (int n = 0; n < 16; ++n, ++k) {
            threads.emplace_back([k] { filled(20, k)->clone(); });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        if (k % (count / 10) < 16) {
            tell("threads", k);
        }
    }
}

/// Tables that threads exchange.
class Shelf {
public:
    Ptr<Table> exchange(std::size_t place, Ptr<Table> table) {
        std::lock_guard const lock(mutex_);
        std::swap(tables_[place % tables_.size()], table);
        return table;
    }

private:
    std::mutex mutex_;
    std::array<Ptr<Table>, 40> tables_;
};

/// Changes a table that this thread alone holds.
Ptr<Table> changed(Ptr<Table> const& table, std::mt19937& random) {
    Ptr<Table> result;
    Ptr<Table> key(new Table("key"));
    key->at(std::size_t{0}, 0, table->get(random() % 2, 0));
    switch (random() % 5) {
    case 0:
        (void)table->sort(key, result, true);
        break;
    case 1:
        (void)table->append(filled(random() % 1'000, random()), result, true, true);
        break;
    case 2:
        (void)table->merge(filled(random() % 1'000, random()), result, false);
        break;
    case 3:
        (void)table->transpose(result);
        break;
    default:
        break;
    }
    // What shares cells with a table that another thread may get must not outlive this call.
    return result && result->items(0) < 50'000 && result->indices() < 50 ? result : filled(10, random());
}

void randomWork(std::size_t seconds) {
    auto const end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    Shelf shelf;
    std::vector<std::thread> threads;
    for (unsigned seed = 1; seed <= 3; ++seed) {
        threads.emplace_back([&shelf, end, seed] {
            std::mt19937 random(seed);
            while (std::chrono::steady_clock::now() < end) {
                Ptr<Table> table = shelf.exchange(random(), nullptr);
                std::size_t const rows = random() % 20 == 0 ? random() % 30'000 : random() % 300;
                table = table && random() % 2 == 0 ? changed(table, random) : filled(rows, random());
                shelf.exchange(random(), std::move(table));
            }
        });
    }
    for (std::size_t k = 1; k <= 20; ++k) {
        std::this_thread::sleep_until(end - std::chrono::seconds(seconds) * (20 - k) / 20);
        tell("seconds", seconds * k / 20);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

void idleThreads(std::size_t count) {
    Memory const before = memory();
    std::latch ready(static_cast<std::ptrdiff_t>(count));
    std::latch measured(1);
    std::vector<std::thread> threads;
    for (std::size_t k = 0; k < count; ++k) {
        threads.emplace_back([&, k] {
            Ptr<Table> const table = filled(20, k);
            ready.count_down();
            measured.wait();
        });
    }
    ready.wait();
    Memory const after = memory();
    auto const n = static_cast<double>(count);
    std::printf("%zu threads: each %.1f KB resident, %.0f KB of addresses\n", count,
                (after.resident - before.resident) * 1e3 / n,
                (after.addresses - before.addresses) * 1e3 / n);
    measured.count_down();
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace

int main(int argc, char** argv) {
    std::map<std::string, void (*)(std::size_t)> const works = {{"handover", handOver},
                                                                {"threads", shortThreads},
                                                                {"random", randomWork},
                                                                {"idle", idleThreads}};
    auto const work = works.find(argc > 1 ? argv[1] : "");
    std::size_t const count = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1'000;
    if (work == works.end() || count < 20) {
        std::fprintf(stderr, "usage: qx_soak handover|threads|random|idle COUNT, of at least 20\n");
        return 2;
    }
    work->second(count);
    std::printf("%12s %-8s %8.1f MB, %.1f kept\n", "", "at last", memory().resident,
                static_cast<double>(QX::releaseMemory()) / 1e6);
    return 0;
}
