// What memory the library keeps, and that it gives it back: to whoever asks, when there is no more, to other
// threads, and in the child of a fork.

#include "support.h"

#include <qx/qx.h>
#include <qx/text.h>

#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <future>
#include <thread>
#include <vector>

namespace QX {
namespace {

constexpr std::size_t mebibyte = std::size_t{1} << 20U;

/// A table of long texts and nested tables: some 300 bytes of small objects for each row, all of which the library
/// allocates.
Ptr<Table> filled(std::size_t rows) {
    Ptr<Table> table(new Table("filled"));
    for (std::size_t j = 0; j < rows; ++j) {
        int const number = static_cast<int>(j);
        table->at(std::size_t{0}, j, textCell("a text that is too long for a cell to hold in place"));
        Ptr<Table> nested(new Table("nested"));
        nested->at(std::size_t{0}, 0, Cell(number));
        table->at(1, j, Cell(nested));
    }
    return table;
}

/// Whether the library keeps memory in this process.
bool keeps() {
    static bool const found = [] {
        filled(20'000);
        return releaseMemory() > 0;
    }();
    return found;
}

/// The bytes that this process has from malloc.
std::size_t allocated() {
    struct mallinfo2 const info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// True if `work` ends well, in a child process and within a minute.
bool endsWell(std::function<bool()> const& work) {
    pid_t const child = fork();
    if (child == 0) {
        alarm(60);
        bool well = false;
        try {
            well = work();
        } catch (std::exception const& e) {
            std::cerr << e.what() << std::endl;
        }
        _exit(well ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(Keeping, FollowsTheEnvironment) {
    char const* const setting = std::getenv("QX_POOLING");
    if (setting == nullptr) {
        GTEST_SKIP() << "is run with the variable set, too";
    }
    EXPECT_EQ(keeps(), std::string(setting) == "1");
}

TEST(Keeping, GivesBackAllThatIsKept) {
    bool const keeping = keeps();
    Ptr<Table> const used = filled(1'000);
    filled(50'000);
    Ptr<Table> sorted;
    (void)used->sort(used, sorted, true);
    EXPECT_EQ(releaseMemory() > 0, keeping);
    EXPECT_EQ(releaseMemory(), 0U);
    EXPECT_EQ(shown(*used), shown(*filled(1'000)));
}

TEST(Keeping, IsBoundedWhoeverDropsATable) {
    if (!keeps()) {
        GTEST_SKIP() << "this process keeps nothing";
    }
    releaseMemory();
    std::size_t const before = allocated();
    std::promise<Ptr<Table>> made;
    std::promise<void> dropped;
    std::thread builder([&] {
        made.set_value(filled(400'000));
        dropped.get_future().wait(); // idle, but alive
    });
    {
        Ptr<Table> table = made.get_future().get();
        made = std::promise<Ptr<Table>>();
        EXPECT_GT(allocated(), before + 100 * mebibyte);
        table.reset();
    }
    EXPECT_LT(allocated(), before + 50 * mebibyte);
    releaseMemory();
    EXPECT_LT(allocated(), before + 2 * mebibyte);
    dropped.set_value();
    builder.join();
}

TEST(Keeping, EndsWithTheThread) {
    if (!keeps()) {
        GTEST_SKIP() << "this process keeps nothing";
    }
    releaseMemory();
    std::size_t const before = allocated();
    for (int k = 0; k < 1'000; ++k) {
        std::thread([] { filled(20); }).join();
    }
    releaseMemory();
    EXPECT_LT(allocated(), before + mebibyte);
}

/// Leaves this process so many bytes of addresses more than it uses.
void limitMemory(std::size_t bytes) {
    mallopt(M_MMAP_THRESHOLD, 128 * 1024); // and so returns what is larger to the system at once
    malloc_trim(0);
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    rlimit limit{};
    getrlimit(RLIMIT_AS, &limit);
    limit.rlim_cur = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) + bytes;
    setrlimit(RLIMIT_AS, &limit);
}

TEST(Keeping, FailsNothingForWhichThereIsMemory) {
    if (!keeps()) {
        GTEST_SKIP() << "this process keeps nothing";
    }
    releaseMemory();
    EXPECT_TRUE(endsWell([] {
        limitMemory(40 * mebibyte);
        filled(70'000);                           // leaves slabs behind
        Ptr<Table> numbers(new Table("numbers")); // for which an array takes two thirds of the memory
        numbers->at(std::size_t{0}, 30 * mebibyte / sizeof(Cell));
        numbers.reset(); // leaves an array behind
        Ptr<Table> const again = filled(70'000);
        return again->items(0) == 70'000;
    }));
}

TEST(Keeping, LetsForkedChildrenWork) {
    std::atomic<bool> ended = false;
    std::vector<std::thread> threads;
    for (int k = 0; k < 3; ++k) {
        threads.emplace_back([&] {
            while (!ended) {
                Ptr<Table> const table = filled(300);
                Ptr<Table> sorted;
                (void)table->sort(table, sorted, true);
                std::thread([] { filled(10); }).join();
            }
        });
    }
    for (int k = 0; k < 100 && !testing::Test::HasFailure(); ++k) {
        EXPECT_TRUE(endsWell([] {
            Ptr<Table> const table = filled(300);
            std::thread([] { filled(300); }).join();
            return table->clone()->items(0) == 300;
        })) << k;
    }
    ended = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
}

} // namespace
} // namespace QX
