#include "operations.h"

namespace QX {
namespace {

TEST(TableTranspose, TurnsIndicesIntoRows) {
    expectResults({"transpose"}, R"(
        A 1 2 | B 3 ; ; A B | 1 3 | 2 -
        A | | B 1 ; ; A - B | - - 1
        A ; ; A
    )");
}

TEST(TableTranspose, TurnsManyUnevenIndices) {
    Ptr<Table> const table(new Table("t"));
    for (std::size_t i = 0; i < 300; ++i) {
        table->at(i, i * 7 % 5) = static_cast<double>(i);
    }
    Ptr<Table> turned;
    (void)table->transpose(turned);
    ASSERT_EQ(turned->indices(), 5U);
    for (std::size_t j = 0; j < 5; ++j) {
        ASSERT_EQ(turned->items(j), 300U);
        for (std::size_t i = 0; i < 300; ++i) {
            EXPECT_EQ(printed(turned->get(j, i)), printed(table->get(i, j)));
        }
    }
}

TEST(TableSort, OrdersRowsByKeys) {
    expectResults({"sort up", "sort"}, R"(
        A 3 1 2 1 | B w x y z ; A ; A 1 1 2 3 | B x z y w ; A 3 2 1 1 | B w y x z
        A 2 1 2 1 | B x z w y ; A B ; A 1 1 2 2 | B y z w x ; A 2 2 1 1 | B x w z y
        A 2 1 2 1 | B x z w y ; A | B ; A 1 1 2 2 | B y z w x ; A 2 2 1 1 | B x w z y
        A 2 1 2 1 | B x z w y ; A | B | {n } ; A 1 1 2 2 | B y z w x ; A 2 2 1 1 | B x w z y
        A 2 1 2 1 | B x z w y ; B A | C x ; A 2 2 1 1 | B w x y z ; A 1 1 2 2 | B z y x w   <- of index 0
        A b a ab B | X 1 2 3 4 ; A ; A B a ab b | X 4 2 3 1 ; A b ab a B | X 1 3 2 4
        A 2 - 1 "" ? | B 1 2 3 4 5 ; A ; A - "" ? 1 2 | B 2 4 5 3 1 ; A 2 1 - "" ? | B 1 3 2 4 5
        A 2 1 | B 1 2 3 4 ; A ; A - - 1 2 | B 3 4 2 1 ; A 2 1 - - | B 1 2 3 4
        A x 2 a 10 ; A ; A 2 10 a x ; A x a 10 2
        A 1 1970-01-03 0.5 ; A ; A 1970-01-03 0.5 1 ; A 1 0.5 1970-01-03
        A 0 -0 -1 ; A ; A -1 0 -0 ; A 0 -0 -1
        A ; A ; A ; A
        A | | B 2 1 ; B ; A - - | - - - | B 1 2 ; A - - | - - - | B 2 1
        A 0.3 0.30000000000000004 ; A ; A 0.3 0.30000000000000004 0.3 0.30000000000000004
            ;; A 0.3 0.30000000000000004 0.3 0.30000000000000004
        A {m X } {n X 1 2 } x ; A ; A x {n X 1 2 } {m X } ; A {m X } {n X 1 2 } x   <- larger first
        A !x !y ; A ; A !x !y ; A !x !y
        0 2 1 ; ? ; 0 1 2 ; 0 2 1
        2 b a ; 2 ; 2 a b ; 2 b a
        1970-01-02 b a ; 1 ; 1970-01-02 a b ; 1970-01-02 b a
        A 2 1 | A 1 2 ; A ; A 1 2 | A 2 1 ; A 2 1 | A 1 2
    )");
}

TEST(TableSort, StopsAtAKeyThatNamesNothing) {
    expectResults({"sort up"}, R"(
        A 2 1 | B x y ; ; Sort key not found: kept
        A 2 1 | B x y ; {n } ; Sort key not found: kept
        A 2 1 | B x y ; A - ; Key not found: kept
        A 2 1 | B x y ; A "" ; Key not found: kept
        A 2 1 | B x y ; A X ; Key not found: kept
        A 2 1 | B x y ; X A ; Key not found: A 1 2 | B y x   <- sorted by the keys behind
        A 2 1 | B x y ; B X A ; Key not found: A 1 2 | B y x
        A 2 1 | B x y ; A | B 1 2 ; Key not found: kept   <- index 0 lacks keys
        A 2 1 | B x y ; {n } A {n } ; A 1 2 | B y x   <- a key without text is skipped
        A 1 nan 2 | B x y z ; A ; A 1 2 | B x z   <- rows of no value are lost
        A nan 1 | B x y ; A ; A nan | B x
    )");
}

TEST(TableSort, KeepsTheOrderOfEqualRows) {
    constexpr std::size_t rows = 200;
    Ptr<Table> t = brief("A | B");
    for (std::size_t j = 1; j <= rows; ++j) {
        t->at(0, j) = Cell(static_cast<double>(j * 7 % 3));
        t->at(1, j) = Cell(static_cast<double>(j));
    }
    (void)t->sort(brief("A"), t, false);
    for (std::size_t j = 2; j <= rows; ++j) {
        EXPECT_TRUE(t->get(0, j) < t->get(0, j - 1) ||
                    (t->get(0, j).compare(t->get(0, j - 1), false) && t->get(1, j - 1) < t->get(1, j)))
            << j;
    }
}

TEST(TableSort, LosesRowsBesideErrors) {
    expectResults({"sort up", "sort"}, R"(
        A !e 5 x 7 | B 1 2 3 4 ; A ; A !e | B 1 ; A !e | B 1
        A 5 !e x 7 | B 1 2 3 4 ; A ; A 5 7 x | B 1 4 3 ; A x 7 5 | B 3 4 1
    )");
}

} // namespace
} // namespace QX
