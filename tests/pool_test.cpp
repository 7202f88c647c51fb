#include "base/makeptr.h"
#include "memory/blocks.h"
#include "table/model/column.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <new>
#include <random>
#include <stdexcept>
#include <thread>
#include <vector>

namespace QX {
namespace {

/// An object that knows whether anything has written over it.
template <std::size_t words>
struct Marked {
    explicit Marked(std::size_t mark) { marks.fill(mark); }
    bool intact() const {
        for (std::size_t const each : marks) {
            if (each != marks.front()) {
                return false;
            }
        }
        return true;
    }

    std::array<std::size_t, words> marks;
};

template <std::size_t words>
using Handles = std::vector<Ptr<Marked<words>>>;

template <std::size_t words>
void add(Handles<words>& handles, std::size_t count) {
    for (std::size_t k = 0; k < count; ++k) {
        handles.push_back(makePtr<Marked<words>>(handles.size()));
    }
}

/// The number of objects that are not as they were made, which none should be.
template <std::size_t words>
std::size_t spoilt(Handles<words> const& handles) {
    std::size_t count = 0;
    for (std::size_t k = 0; k < handles.size(); ++k) {
        count += handles[k] && !(handles[k]->intact() && handles[k]->marks[0] == k) ? 1 : 0;
    }
    return count;
}

/// Releases and makes anew objects of several slabs in a random order, here and by threads that end.
template <std::size_t words>
void churn() {
    SCOPED_TRACE(words);
    constexpr std::size_t count = 60'000;
    Handles<words> handles;
    std::thread([&] { add(handles, count / 2); }).join(); // whose storage nobody owns from now on
    add(handles, count / 2);
    std::mt19937 random(words);
    auto const renew = [&](std::size_t rounds) {
        for (std::size_t k = 0; k < rounds; ++k) {
            std::size_t const place = random() % count;
            handles[place] = random() % 2 == 0 ? nullptr : makePtr<Marked<words>>(place);
        }
    };
    for (int round = 0; round < 3; ++round) {
        renew(count);
        std::thread(renew, count).join();
        EXPECT_EQ(spoilt(handles), 0U);
    }
    std::thread([&] { handles.clear(); }).join();
    add(handles, count);
    EXPECT_EQ(spoilt(handles), 0U);
}

TEST(Pool, KeepsObjectsApartWhicheverThreadMakesAndReleasesThem) {
    churn<1>();
    churn<3>();
    churn<13>();
    churn<14>(); // too large for the pool
}

TEST(Pool, TakesBackWhatOtherThreadsRelease) {
    Handles<2> made;
    Handles<2> taken;
    for (int round = 0; round < 20; ++round) {
        add(made, 10'000);
        made.swap(taken);
        std::thread releasing([&] { taken.clear(); });
        add(made, 10'000); // while the other thread gives back
        releasing.join();
        EXPECT_EQ(spoilt(made), 0U);
        made.clear();
    }
}

/// Made before its thread uses the pool, and so ends when the thread's share of it has gone.
struct Straggler {
    std::size_t* spoiltOnes;

    ~Straggler() {
        Handles<3> handles;
        add(handles, 1'000);
        *spoiltOnes = spoilt(handles);
    }
};

TEST(Pool, ServesThreadsToTheirVeryEnd) {
    std::size_t spoiltOnes = 1;
    std::thread([&] {
        thread_local Straggler const straggler{&spoiltOnes};
        Handles<3> handles;
        add(handles, 1'000);
    }).join();
    EXPECT_EQ(spoiltOnes, 0U);
}

/// Makes and drops large vectors of many sizes, each filled with its own mark; counts those that are not
/// as they were made.
std::size_t churnVectors(unsigned seed) {
    std::mt19937 random(seed);
    std::vector<BlockVector<std::size_t>> vectors(12);
    std::size_t spoiltOnes = 0;
    for (std::size_t round = 0; round < 400; ++round) {
        BlockVector<std::size_t>& vector = vectors[random() % vectors.size()];
        for (std::size_t const mark : vector) {
            spoiltOnes += mark == vector.front() ? 0 : 1;
        }
        vector = BlockVector<std::size_t>(random() % 3 == 0 ? 40'000 : random() % 120'000, round);
    }
    return spoiltOnes;
}

TEST(Blocks, KeepVectorsApartInEveryThread) {
    std::size_t elsewhere = 1;
    std::thread other([&] { elsewhere = churnVectors(1); });
    EXPECT_EQ(churnVectors(2), 0U);
    other.join();
    EXPECT_EQ(elsewhere, 0U);
}

/// The number of cells that don't hold their own place in the column.
std::size_t displaced(Column const& column) {
    std::size_t count = 0;
    for (std::size_t j = 0; j < column.size(); ++j) {
        count +=
            column[j].compare(Cell(Str::asString(static_cast<int>(j)) + " in its place"), false) ? 0 : 1;
    }
    return count;
}

void addPlaces(Column& column, std::size_t count) {
    for (std::size_t size = column.size() + count; column.size() < size;) {
        column.push_back(Cell(Str::asString(static_cast<int>(column.size())) + " in its place"));
    }
}

TEST(Blocks, MoveWithTheirCellsWhenTheyGrow) {
    std::mt19937 random(1);
    std::array<Column, 4> columns;
    for (int round = 0; round < 40; ++round) {
        Column& column = columns[random() % columns.size()];
        if (random() % 4 == 0) {
            EXPECT_EQ(displaced(column), 0U);
            column = Column();
        }
        std::size_t const count = random() % 20'000;
        if (random() % 3 == 0) {
            std::thread([&] { addPlaces(column, count); }).join(); // an array may grow on any thread
        } else {
            addPlaces(column, count);
        }
    }
    for (Column const& column : columns) {
        EXPECT_EQ(displaced(column), 0U);
    }
}

TEST(Blocks, TakeACellOfTheirOwnWhileTheyMove) {
    Column column;
    addPlaces(column, 1);
    while (column.size() < 30'000) {
        column.push_back(column.front());
    }
    for (Cell const& cell : column) {
        ASSERT_TRUE(cell.compare(Cell("0 in its place"), false));
    }
}

#if defined(QX_POOLING) // the sanitizers' operator new ends the program instead of raising
TEST(Blocks, StayWhatTheyAreWhenNoMemoryHoldsMore) {
    for (std::size_t const size : {10U, 30'000U}) {
        Column column;
        addPlaces(column, size);
        EXPECT_THROW(column.reserve(std::size_t{1} << 45U), std::bad_alloc);
        EXPECT_THROW(column.resize(static_cast<std::size_t>(-1)), std::length_error);
        EXPECT_EQ(column.size(), size);
        EXPECT_EQ(displaced(column), 0U);
    }
}
#endif

} // namespace
} // namespace QX
