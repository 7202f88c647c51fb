#include "operations.h"

namespace QX {
namespace {

TEST(TableSelect, PicksIndicesByName) {
    expectResults({"select"}, R"(
        A 1 2 | B 3 4 | C 5 6 ; B | A Z ; B 3 4 | Z 1 2
        A 1 2 | B 3 ; B | B "" | B - ; B 3 - | B 3 - | B 3 -
        A 1 | B 2 ; X | B ; B 2
        A 1 | A 2 ; A ; A 1
        A | B ; B C ; C
        ; A ;
        0 1 ; ? ; ? 1
        1970-01-02 x ; 1 ; 1 x
        "" 1 ; - ; - 1
        a 1 ; A ;
        A 1 ; A | B 1 2
            ;; raises Select items must be specified as indices not items in the selection table: kept
    )");
    expectResults({"select keep"}, R"(
        A 1 | B 2 ; X Y | B ; X | B 2   <- no new name without a match
        A 1 ; ;
        ; A ; A
        A 1 ; A | {n } | B ; Cell translation to string not supported for this type: kept
    )");
    expectResults({"select invert"}, R"(
        A 1 2 | B 3 4 | C 5 ; B ; A 1 2 | C 5 -
        A 1 | B 2 ; A | X Y | B ;
        B 1 | A 2 | B 3 ; A ; B 1 | B 1   <- picked by name, so the first
        A 1 | - 2 | {n } 3 ; A ;
        ? 1 ; A ; 0 1   <- by the cell of its text
    )");
    expectResults({"select keep invert"}, R"(
        A 1 | - 2 | {n } 3 ; A ; "" 2 | "" 2
        {n } 3 ; A ; ""
        - 1 | A 2 ; - ; "" 1 | A 2   <- an empty name names nothing
    )");
    expectResults({"select distinct"}, R"(
        A 1 2 1 2 | B x y x z ; A | B ; A 1 2 2 | B x y z
        A A 1 | B B 2 ; A | B ; A 1 | B 2   <- like the names
        A 0.3 0.30000000000000004 0.30000000000000010 ; A ; A 0.3 0.3000000000000001
        A "" - "" ; A ; A "" -   <- the earlier one decides
        A - "" ? ; A ; A -
        A nan nan ; A ; A nan
        A 1 1970-01-02 2 ; A ; A 1 2
        A 1 ; ;
    )");
    expectResults({"select keep distinct"}, R"(
        A 1 1 ; A | X ; A 1 | X -
    )");
    expectResults({"select distinct invert"}, R"(
        A 1 | B 2 ; A ; B 2
    )");
}

TEST(TableFilter, PicksRowsByValue) {
    expectResults({"filter"}, R"(
        A 2 1 2 3 | B u v w x ; A 1 2 ; A 1 2 2 | B v u w
        A 1 2 | B u v ; A 2 2 ; A 2 2 | B v v
        A 1 2 1 1 | B x x y x ; A 1 | B x ; A 1 1 | B x x
        A 1 - 2 | B x y ; A 1 | B y z ; A - | B y   <- the value that A lacks is empty
        A 1 - 2 | B x y ; B y z | A 1 ; A - | B y
        A 1 2 | B 3 ; X 1 ; A | B
        A 1 2 ; A ; A
        A | | B 1 ; B 1 ; A - | - - | B 1
        A 1970-01-02 1 x ; A 1 ; A 1970-01-02 1
        A 0.3 0.30000000000000004 ; A 0.3 ; A 0.3 0.30000000000000004
        A - "" ? 0 ; A - ; A -
        A - "" ? 0 ; A "" ; A - ""
        A - "" ? 0 ; A ? ; A - ? 0
        A a A ; A A ; A A
        A nan 1 nan ; A nan 1 ; A nan nan 1
        A !x !y 1 ; A !y ; A !x !y
        - 1 2 | A 3 4 ; {n } 2 ; - 2 | A 4
        A 0.3 0.30000000000000004 1970-01-02 1 - ? !x x x ; A x 1 0.3 - ! y z 1
            ;; A x x 1970-01-02 1 0.3 0.30000000000000004 - !x 1970-01-02 1   <- many values
        A 1 2 ; ; kept   <- no condition
        A 1 2 ; A 1 2 | {n } 1
            ;; Cell translation to string not supported for this type: A 1 2   <- as far as it got
    )");
    expectResults({"filter exclude"}, R"(
        A 2 1 2 3 | B u v w x ; A 1 2 ; A 3 | B x
        A 1 2 1 3 | B x x y y ; A 1 | B x ; A 3 | B y
        A 1 2 | B 3 ; X 1 ; A 1 2 | B 3 -
        A 1 - 2 ; A ; A 1 2
        A 1970-01-02 1 x ; A 1 ; A 1970-01-02 x
        A 0.3 0.30000000000000004 ; A 0.3 ; A 0.30000000000000004
        A nan 1 ; A nan ; A 1
        A !x !y 1 ; A !y ; A !x 1
        A 3 4 ; {n } 2 ; A 3 4
    )");
    expectResults({"filter keep exclude"}, R"(
        A 1 - 2 ; A ; A 1 - 2
        A - "" ? 0 ; A ? ; A - ""
        A - "" {n } 1 ; A 1 - ; A   <- the text of an empty value drops empty ones
    )");
}

TEST(TableFilter, GoesOnFromWhatTheResultHoldsAfterAFailedStep) {
    Ptr<Table> const t = brief("A 1 2");
    Ptr<Table> result;
    EXPECT_EQ(told("filter", *t, brief("{n } 1 | A 1"), result),
              "Cell translation to string not supported for this type: null");
    result = brief("A 5 1 | B 6 7", "R");
    EXPECT_EQ(told("filter", *t, brief("{n } 1 | A 1"), result), "A 1 | B 7");
    EXPECT_EQ(string(result->name()), "R");
}

} // namespace
} // namespace QX
