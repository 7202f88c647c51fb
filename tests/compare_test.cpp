#include "brief.h"

namespace QX {
namespace {

/// The differences one behind the other: place, left cell, right cell.
std::string differences(std::string const& left, std::string const& right, bool flag = false) {
    Ptr<Table> result;
    EXPECT_EQ(outcome(brief(left)->compare(brief(right, "u"), result, flag)), "Ok");
    std::string all;
    for (std::size_t j = 1; j < length(*result, 0); ++j) {
        for (std::size_t i = 0; i < 3; ++i) {
            all += (i > 0 ? " " : j > 1 ? ", " : "") + brief(result->get(i, j));
        }
    }
    EXPECT_EQ(result->indices(), all.empty() ? 0U : 3U);
    return all;
}

TEST(TableCompare, ListsDifferences) {
    for (Row const& row : rows(R"(
        x 1 2 | y 7 ; x 1 3 ; /x[2] 2 3, /y[0] y missing, /y[1] 7 missing
        x 1 ; x 1 | y 7 8 ; /y[0] missing y, /y[1] missing 7, /y[2] missing 8
        x 1 2 | y 3 ; y 3 | x 1 2 ;
        x 1 2 ; x 1 ; /x[2] 2 missing
        x 1 ; x 1 2 ; /x[2] missing 2
        x 1 - "" ? | y 2 ; x 1 | y 2 ;   <- what is empty is never missed
        x 1 - - ; x 1 2 - ; /x[2] - 2
        x 1 2 ; x 1 | y 3 4 ; /x[2] 2 -, /y[0] missing y, /y[1] missing 3, /y[2] missing 4
        ; x 1 ; /x[0] missing x, /x[1] missing 1
        ; ;
        x 0.3 - ; x 0.30000000000000004 "" ;
        x "" a ; x - A ; /x[1] "" -, /x[2] a A   <- the left cell decides
        x {n a 1 } ; x 1 ; /x[1] {n a 1 } 1
        x 1 | x 2 ; x 1 ; /x[1] 2 1   <- pairs with the first of its name
        - 1 | {n } 2 ; z 8 | - 3
            ;; [0] - z, [1] 1 8, [0] {n } -, [1] 2 3, /z[0] missing z, /z[1] missing 8
        x 1 | - 2 ; x 1 ; [1] 2 missing
        0 1 ; ? 1 ;   <- names by text
        {n } 1 | x 2 ; x 2 ; [0] {n } x, [1] 1 2
        t {n u 1 } 5 ; t {m u 2 | v 3 } 6
            ;; /t[1]/u[1] 1 2, /t[1]/v[0] missing v, /t[1]/v[1] missing 3, /t[2] 5 6
        t {n u {o w 1 } | - 4 } ; t {n u {o w 2 } } ; /t[1]/u[1]/w[1] 1 2, [1] 4 missing
        - {n u 1 } ; - {n u 2 } ; [1]/u[1] 1 2
        t {n u } | x 1 ; t {n } | x 2 ; /t[1]/u[0] u missing, /x[1] 1 2
    )")) {
        SCOPED_TRACE(row.line);
        EXPECT_EQ(differences(row[0], row[1]), row[2]);
        EXPECT_EQ(brief(row[0])->match(brief(row[1]), false), row[2].empty());
    }
    Ptr<Table> result;
    (void)brief("x 1")->compare(brief("x 2"), result, false);
    EXPECT_EQ(brief(*result), "Xpath /x[1] | Left 1 | Right 2");
}

TEST(TableCompare, FlagIgnoresTheCaseOfItemsOnly) {
    EXPECT_EQ(differences("x aB {n u c }", "x Ab {n u C }", true), "");
    EXPECT_EQ(differences("x", "X", true), "/x[0] x missing, /X[0] missing X");
}

TEST(TableMatch, NeverEqualsWithFlag) {
    Ptr<Table> const t = brief("x 1");
    EXPECT_TRUE(t->match(t, false));
    EXPECT_FALSE(t->match(t, true));
    EXPECT_FALSE(t->match(nullptr, true));
}

} // namespace
} // namespace QX
