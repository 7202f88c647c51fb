#include "operations.h"

#include <locale>

namespace QX {
namespace {

TEST(TableAppend, AddsRowsBelow) {
    expectResults({"append", "append all"}, R"(
        A 1 2 | B 3 4 ; A 5 6 | C 7 8 ; A 1 2 5 6 | B 3 4 ; A 1 2 5 6 | B 3 4 | C - - 7 8
        A 1 | B 3 4 ; A 5 | B 6 7 ; A 1 - 5 - | B 3 4 6 7 ; =
        ; A 1 2 | B 3 ; ; A 1 2 | B 3 -
        A ; A 1 | B ; A 1 ; A 1 | B -
        A 1 ; A | B ; A 1 ; A 1 | B   <- no rows, only names
        A 1 | B ; ; A 1 | B - ; =
        A 1 ; A 2 | A 3 4 ; A 1 3 4 ; =   <- the later one's rows remain
        A 1 ; B 2 | B 3 ; A 1 ; A 1 | B - 3   <- found among those added
        A 1 | A 2 ; A 3 ; A 1 3 | A 2 ; =   <- the first of its name
        A 1 | | B 2 ; B 3 ; A 1 | - - | B 2 3 ; =
        "" 1 ; - 2 ; "" 1 2 ; =
        A 1 ; - 2 ; A 1 ; A 1 | "" - 2
        A 1 ; {n } 2 ; A 1 ; A 1 | "" - 2   <- a table has no text
        A 1 ; !x 2 ; A 1 ; A 1 | !x - 2
        0 1 ; ? 2 ; 0 1 2 ; =
        1970-01-02 1 ; 1 2 ; 1970-01-02 1 2 ; =
        a 1 ; A 2 ; a 1 ; a 1 | A - 2
    )");
}

TEST(TableAppend, NamesAnAddedIndexByItsText) {
    Ptr<Table> const lower = brief("2 1", "u");
    Ptr<Table> result;
    (void)brief("")->append(lower, result, true, false);
    EXPECT_NE(&result->get(0, 0), &lower->get(0, 0));
    EXPECT_EQ(result->get(0, 0).isA(), Cell::NumericCell);
}

TEST(TableAppend, RemovesRowsThatDisplayAlike) {
    expectResults({"append all distinct"}, R"(
        A 1 2 1 | B x y x ; A 2 3 | B y y ; A 1 2 3 | B x y y
        A 1 2 | B 3 ; C 4 ; A 1 2 - | B 3 - - | C - - 4
        A A 1 ; A A ; A 1   <- a row like the names
        A a: a | B b :b ; ; A a: | B b
        A - "" - ? !x !y ; ; A - "" ?   <- an error displays nothing
        A 1234567 1234568 12345678901234567 ; A 1234567 12345678901234569
            ;; A 1234567 1234568 12345678901234568
        A 0.3 0.30000000000000004 0 -0 ; ; A 0.3 0.30000000000000004 0 -0
        A {n X 1 } {n X 1 } {n X 2 } ; ; A {n X 1 } {n X 2 }
        A ; ; A
    )");
}

struct Grouping : std::numpunct<char> {
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(TableAppend, KeysRowsTheSameInEveryLocale) {
    std::locale const before = std::locale::global(std::locale(std::locale::classic(), new Grouping));
    expectResults({"append all distinct"}, "A 1000 {n X 1e3 } ; A 1000 {n X 1e3 } ; A 1000 {n X 1000 }");
    std::locale::global(before);
}

} // namespace
} // namespace QX
