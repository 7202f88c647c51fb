#include "brief.h"

namespace QX {
namespace {

TEST(TableTranspose, TurnsIndicesIntoRows) {
    char const* const cases[][2] = {
        {"A 1 2 | B 3", "A B | 1 3 | 2 -"}, {"", ""}, {"A", "A"}, {"A | | B 1", "A - B | - - 1"}};
    for (auto const& row : cases) {
        SCOPED_TRACE(row[0]);
        Ptr<Table> result;
        EXPECT_EQ(outcome(brief(row[0])->transpose(result)), "Ok");
        EXPECT_EQ(named(result), std::string("t: ") + row[1]);
    }
}

struct SortCase {
    char const* table;
    char const* keys;
    char const* ascending;
    char const* descending;
};

SortCase const sortCases[] = {
    {"A 3 1 2 1 | B w x y z", "A", "A 1 1 2 3 | B x z y w", "A 3 2 1 1 | B w y x z"},
    {"A 2 1 2 1 | B x z w y", "A B", "A 1 1 2 2 | B y z w x", "A 2 2 1 1 | B x w z y"},
    {"A 2 1 2 1 | B x z w y", "A | B", "A 1 1 2 2 | B y z w x", "A 2 2 1 1 | B x w z y"},
    {"A 2 1 2 1 | B x z w y", "A | B | {n }", "A 1 1 2 2 | B y z w x", "A 2 2 1 1 | B x w z y"},
    {"A 2 1 2 1 | B x z w y", "B A | C x", "A 2 2 1 1 | B w x y z",
     "A 1 1 2 2 | B z y x w"}, // of index 0
    {"A b a ab B | X 1 2 3 4", "A", "A B a ab b | X 4 2 3 1", "A b ab a B | X 1 3 2 4"},
    {"A 2 - 1 \"\" ? | B 1 2 3 4 5", "A", "A - \"\" ? 1 2 | B 2 4 5 3 1",
     "A 2 1 - \"\" ? | B 1 3 2 4 5"},
    {"A 2 1 | B 1 2 3 4", "A", "A - - 1 2 | B 3 4 2 1", "A 2 1 - - | B 1 2 3 4"},
    {"A x 2 a 10", "A", "A 2 10 a x", "A x a 10 2"},
    {"A 1 1970-01-03 0.5", "A", "A 1970-01-03 0.5 1", "A 1 0.5 1970-01-03"},
    {"A 0 -0 -1", "A", "A -1 0 -0", "A 0 -0 -1"},
    {"A", "A", "A", "A"},
    {"A | | B 2 1", "B", "A - - | - - - | B 1 2", "A - - | - - - | B 2 1"},
    // Listed once for each value that a row equals.
    {"A 0.3 0.30000000000000004", "A", "A 0.3 0.30000000000000004 0.3 0.30000000000000004",
     "A 0.3 0.30000000000000004 0.3 0.30000000000000004"},
    {"A {m X } {n X 1 2 } x", "A", "A x {n X 1 2 } {m X }", "A {m X } {n X 1 2 } x"}, // larger first
    {"A !x !y", "A", "A !x !y", "A !x !y"},
    // Names by text.
    {"0 2 1", "?", "0 1 2", "0 2 1"},
    {"2 b a", "2", "2 a b", "2 b a"},
    {"1970-01-02 b a", "1", "1970-01-02 a b", "1970-01-02 b a"},
    {"A 2 1 | A 1 2", "A", "A 1 2 | A 2 1", "A 2 1 | A 1 2"},
};

TEST(TableSort, OrdersRowsByKeys) {
    for (SortCase const& row : sortCases) {
        for (bool const ascending : {true, false}) {
            SCOPED_TRACE(row.table + std::string(" sort ") + row.keys + (ascending ? " up" : " down"));
            Ptr<Table> result;
            EXPECT_EQ(outcome(brief(row.table)->sort(brief(row.keys), result, ascending)), "Ok");
            EXPECT_EQ(named(result), std::string("t: ") + (ascending ? row.ascending : row.descending));
        }
    }
}

TEST(TableSort, KeepsTheOrderOfEqualRows) {
    constexpr std::size_t rows = 200;
    Ptr<Table> t = table("t", {{"A"}, {"B"}});
    for (std::size_t j = 1; j <= rows; ++j) {
        t->at(0, j) = Cell(static_cast<double>(j * 7 % 3));
        t->at(1, j) = Cell(static_cast<double>(j));
    }
    t->sort(brief("A"), t, false);
    for (std::size_t j = 2; j <= rows; ++j) {
        double values[4];
        for (std::size_t i = 0; i < 4; ++i) {
            t->get(i / 2, j - i % 2).get(values[i]);
        }
        EXPECT_TRUE(values[1] > values[0] || (values[1] == values[0] && values[3] < values[2])) << j;
    }
}

struct SortFailure {
    char const* keys;
    char const* outcome;
    char const* result;
};

SortFailure const sortFailures[] = {
    {"", "Sort key not found", "R: r"},
    {"{n }", "Sort key not found", "R: r"},
    {"A -", "Key not found", "R: r"},
    {"A \"\"", "Key not found", "R: r"},
    {"A X", "Key not found", "R: r"},
    {"X A", "Key not found", "t: A 1 2 | B y x"}, // sorted by the keys behind
    {"B X A", "Key not found", "t: A 1 2 | B y x"},
    {"A | B 1 2", "Key not found", "R: r"},    // index 0 lacks keys
    {"{n } A {n }", "Ok", "t: A 1 2 | B y x"}, // a key without text is skipped
};

TEST(TableSort, StopsAtAKeyThatNamesNothing) {
    for (SortFailure const& row : sortFailures) {
        SCOPED_TRACE(row.keys);
        Ptr<Table> result = brief("r", "R");
        EXPECT_EQ(outcome(brief("A 2 1 | B x y")->sort(brief(row.keys), result, true)), row.outcome);
        EXPECT_EQ(named(result), row.result);
    }
}

TEST(TableSort, LosesRowsOfNoValue) {
    Ptr<Table> result;
    EXPECT_EQ(outcome(brief("A 1 nan 2 | B x y z")->sort(brief("A"), result, true)), "Ok");
    EXPECT_EQ(brief(*result), "A 1 2 | B x z");
    EXPECT_EQ(outcome(brief("A nan 1 | B x y")->sort(brief("A"), result, true)), "Ok");
    EXPECT_EQ(brief(*result), "A nan | B x");
}

} // namespace
} // namespace QX
