#include "operations.h"

namespace QX {
namespace {

TEST(TableMerge, PutsIndicesBehindOrOverThoseOfTheirName) {
    expectResults({"merge", "merge by name"}, R"(
        A 1 | B 2 ; B 7 8 | C 9 ; A 1 | B 2 | B 7 8 | C 9 - ; A 1 | B 7 8 | C 9 -
        A 1 | B 4 5 6 ; B 9 ; A 1 - - | B 4 5 6 | B 9 ; A 1 - - | B 9 5 6
        B 4 5 6 ; B 9 | C 1 2 ; B 4 5 6 | B 9 - | C 1 2 ; B 9 - 6 | C 1 2
        A 1 ; X 1 2 | X 3 ; A 1 | X 1 2 | X 3 - ; A 1 | X 3 -   <- also found among those added
        A 1 | A 2 ; A 9 ; A 1 | A 2 | A 9 ; A 9 | A 2
        ; A 1 | B ; A 1 | B - ; =
        A 1 | B ; ; A 1 | B - ; =
        A | | B 1 ; | C 2 ; A - | - - | B 1 | - - | C 2 ; A - | - - | B 1 | C 2
        "" 1 ; - 2 ; "" 1 | - 2 ; =
        - 1 ; "" 2 ; - 1 | "" 2 ; "" 2
        0.3 1 ; 0.30000000000000004 2 ; 0.3 1 | 0.30000000000000004 2 ; 0.30000000000000004 2
        1970-01-02 1 ; 1 2 ; 1970-01-02 1 | 1 2 ; 1 2
        a 1 ; A 2 ; a 1 | A 2 ; =
        0 a ; 5e-324 b | 1e-323 c ; 0 a | 5e-324 b | 1e-323 c ; 1e-323 c
        5e-324 a ; 0 b | 1e-323 c ; 5e-324 a | 0 b | 1e-323 c ; 0 b | 1e-323 c
    )");
}

TEST(TableFill, FillsIndicesWithOneValue) {
    expectResults({"fill -1"}, R"(
        A 1 2 3 | X 4 5 6 ; X 0 ; A 1 2 3 | X 0 0 0
        A ; A 1 | B 2 ; A | B   <- only names
        A 1 2 ; ; Fill Table must contain two rows: kept
        A 1 2 ; X | Y ; Fill Table must contain two rows: kept
    )");
    expectResults({"fill 5"}, R"(
        A 1 2 3 | X 4 5 6 ; X 0 ; A 1 2 3 | X 0 0 0 0
    )");
    expectResults({"fill 2"}, R"(
        A 1 2 3 | X 4 5 6 ; X 0 ; A 1 2 3 | X 0 0 0
    )");
    expectResults({"fill 4"}, R"(
        A 1 2 | X ; Y 0 | X 1 7 8 | Z ; A 1 2 | X 1 1 1 | Y 0 0 0 | Z - - -   <- 7 8 not read
    )");
    expectResults({"fill 1"}, R"(
        ; A 1 | B 2 ; A | B
    )");
    expectResults({"fill 3"}, R"(
        ; A 1 | B 2 ; A 1 1 | B 2 2
        A 1 ; X 1 | X 2 ; A 1 | X 2 2
    )");
}

TEST(TableFill, SharesOneBodyAmongAllFilled) {
    Ptr<Table> result;
    (void)brief("X 1 2 3")->fill(brief("X {n }"), result, -1);
    EXPECT_EQ(nested(result->get("X", 1)).get(), nested(result->get("X", 3)).get());
}

} // namespace
} // namespace QX
