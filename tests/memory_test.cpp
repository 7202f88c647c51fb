#include "scenarios.h"

#include <cstdlib>
#include <new>
#include <stdexcept>

namespace QX {
namespace {

/// The allocations of this program, made by malloc; every one of them may be made to fail.
struct Allocations {
    std::size_t live = 0;
    std::size_t left = 0; // this many more and one fails; none does while it is 0
    std::size_t failed = 0;

    void* make(std::size_t size) noexcept {
        constexpr std::size_t enormous = std::size_t{1} << 30U; // whatever the system would promise
        bool const refused = left != 0 && --left == 0;
        failed += refused ? 1 : 0;
        void* const memory = refused || size > enormous ? nullptr : std::malloc(size == 0 ? 1 : size);
        live += memory == nullptr ? 0 : 1;
        return memory;
    }
    void free(void* memory) noexcept {
        live -= memory == nullptr ? 0 : 1;
        std::free(memory);
    }
};

Allocations allocations;

void* makeOrThrow(std::size_t size) {
    void* const memory = allocations.make(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}

} // namespace
} // namespace QX

void* operator new(std::size_t size) {
    return QX::makeOrThrow(size);
}
void* operator new[](std::size_t size) {
    return QX::makeOrThrow(size);
}
void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
    return QX::allocations.make(size);
}
void* operator new[](std::size_t size, std::nothrow_t const&) noexcept {
    return QX::allocations.make(size);
}
void operator delete(void* memory) noexcept {
    QX::allocations.free(memory);
}
void operator delete[](void* memory) noexcept {
    QX::allocations.free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    QX::allocations.free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    QX::allocations.free(memory);
}
void operator delete(void* memory, std::nothrow_t const&) noexcept {
    QX::allocations.free(memory);
}
void operator delete[](void* memory, std::nothrow_t const&) noexcept {
    QX::allocations.free(memory);
}

namespace QX {
namespace {

/// Runs with the k-th allocation failing. True when that was reached; `threw` says whether the caller
/// learns of it.
bool runFailing(Scenario const& scenario, Objects& objects, std::size_t k, bool& threw) {
    std::size_t const failed = allocations.failed;
    allocations.left = k;
    threw = false;
    try {
        scenario.run(objects);
    } catch (std::bad_alloc const&) {
        threw = true;
    }
    allocations.left = 0;
    return allocations.failed != failed;
}

TEST(Memory, ConversionsThatAKindDoesNotSupportTakeNone) {
    Cell const text("a text that is not short");
    Cell const table(Ptr<Table>(new Table("t")));
    double number = 0;
    int whole = 0;
    AnalyticDouble analytic;
    Status status;
    Ptr<Table> nested;
    Str string;
    allocations.left = 1; // the next allocation fails
    EXPECT_FALSE(text.get(number).ok());
    EXPECT_FALSE(text.get(analytic).ok());
    EXPECT_FALSE(text.get(whole).ok());
    EXPECT_FALSE(Cell(2.5).get(whole).ok());
    EXPECT_FALSE(text.get(status).ok());
    EXPECT_FALSE(text.get(nested).ok());
    EXPECT_FALSE(table.get(string, 0).ok());
    EXPECT_EQ(allocations.left, 1U);
    allocations.left = 0;
}

/// The table that a handle holds can be used, however far it was filled.
void expectValid(Ptr<Table> const& result) {
    EXPECT_TRUE(result->check());
    EXPECT_EQ(result->clone()->indices() == 0, result->items(0) == 0);
    EXPECT_NE(shown(*result).find("Table - "), std::string::npos);
}

std::string outcomeOf(Scenario const& scenario, bool many) {
    Objects objects(many);
    scenario.run(objects);
    return objects.outcome();
}

/// Lets every allocation of a scenario fail in its turn.
void exhaust(Scenario const& scenario, bool many) {
    std::string const expected = outcomeOf(scenario, many);
    std::string const inputs = Objects(many).inputs();
    bool reached = true;
    for (std::size_t k = 1; reached && !testing::Test::HasFailure(); ++k) {
        SCOPED_TRACE("allocation " + std::to_string(k));
        std::size_t const live = allocations.live;
        {
            Objects objects(many);
            bool threw = false;
            reached = runFailing(scenario, objects, k, threw);
            if (threw) {
                EXPECT_EQ(objects.inputs(), inputs);
                expectValid(objects.result);
                std::string_view const text = objects.buffer.text();
                bool const log = scenario.name.find("log") != std::string::npos;
                EXPECT_TRUE(!log || text.empty() || text.back() == '\n') << text;
                objects.buffer.clear();
                objects.found.clear();
                scenario.run(objects);
            }
            EXPECT_EQ(objects.outcome(), expected);
        }
        EXPECT_EQ(allocations.live, live);
    }
}

constexpr std::size_t npos = Table::npos;

std::function<void(Table&)> const enormous[] = {
    [](Table& t) { t.at(npos - 1, 0); },
    [](Table& t) { t.at(0, npos - 1); },
    [](Table& t) { t.at(9, npos - 1); },
    [](Table& t) { t.at(npos, npos - 1); },
    [](Table& t) { t.at("name", npos - 1); },
    [](Table& t) { t.at("new", npos - 1); },
    [](Table& t) { t.at(-2, 0, Cell(1)); },
    [](Table& t) { t.at(9, npos - 1, Cell(1)); },
    [](Table& t) { t.at("name", npos - 1, Cell(1)); },
    [](Table& t) { t.at("new", npos - 1, Cell(1)); },
    [](Table& t) { t.atXPath("a/b[18446744073709551614]", true); },
    [](Table& t) { t.atXPath("a[99999999999999]/b", true); },
    [](Table& t) { t.atXPath("name[99999999999999]/b", true); },
    [](Table& t) { t.atXPath("sub/Y/new[-2]/b", true); },
    [](Table& t) { t.atXPath("sub/new/newer[99999999999999]/b", true); },
    [](Table& t) { t.atXPath("void/a/b[-2]", true); },
    [](Table& t) { t.atXPath("void/b[-2]", true); },
    [](Table& t) { (void)t.setAttribute("unit[-2]", Cell(1)); },
    [](Table& t) { (void)t.setAttribute("style/new/width[-2]", Cell(1)); },
    [](Table& t) { (void)t.setAttribute("a/b/c[99999999999999]", Cell(1)); },
};

TEST(Memory, EnormousPositionsChangeNothing) {
    for (std::size_t row = 0; row < std::size(enormous); ++row) {
        SCOPED_TRACE(row);
        auto const refuses = [&](Ptr<Table> const& table) {
            try {
                enormous[row](*table);
            } catch (std::bad_alloc const&) {
                return true;
            } catch (std::length_error const&) {
                return true;
            }
            return false;
        };
        Scenario const scenario{"", [&](Objects& o) {
                                    o.found =
                                        refuses(o.table) && refuses(o.bodiless) ? "refused" : "grown";
                                }};
        Objects objects;
        std::string const inputs = objects.inputs();
        scenario.run(objects);
        EXPECT_EQ(objects.found, "refused");
        EXPECT_EQ(objects.inputs(), inputs);
        exhaust(scenario, false);
    }
}

TEST(Memory, ExhaustedAnywhereChangesNoInputAndLeaksNothing) {
    for (Scenario const& scenario : scenarios()) {
        SCOPED_TRACE(scenario.name);
        exhaust(scenario, false);
        if (scenario.looksUp) {
            exhaust(scenario, true);
        }
    }
    EXPECT_GT(allocations.failed, 1000U) << "the library must use this program's allocation functions";
}

} // namespace
} // namespace QX
