#include "brief.h"

namespace QX {
namespace {

struct CompareCase {
    char const* left;
    char const* right;
    char const* result; // one difference behind the other: place, left cell, right cell
};

CompareCase const compareCases[] = {
    {"x 1 2 | y 7", "x 1 3", "/x[2] 2 3, /y[0] y missing, /y[1] 7 missing"},
    {"x 1", "x 1 | y 7 8", "/y[0] missing y, /y[1] missing 7, /y[2] missing 8"},
    {"x 1 2 | y 3", "y 3 | x 1 2", ""},
    {"x 1 2", "x 1", "/x[2] 2 missing"},
    {"x 1", "x 1 2", "/x[2] missing 2"},
    {"x 1 - | y 2", "x 1 | y 2", ""}, // empty cells are never missed
    {"x 1 \"\" ?", "x 1", ""},
    {"x 1 - -", "x 1 2 -", "/x[2] - 2"},
    {"x 1 2", "x 1 | y 3 4", "/x[2] 2 -, /y[0] missing y, /y[1] missing 3, /y[2] missing 4"}, // present
    {"", "x 1", "/x[0] missing x, /x[1] missing 1"},
    {"x 1", "", "/x[0] x missing, /x[1] 1 missing"},
    {"", "", ""},
    {"x a", "x A", "/x[1] a A"},
    {"x 0.3 -", "x 0.30000000000000004 \"\"", ""},
    {"x \"\"", "x -", "/x[1] \"\" -"}, // the left cell decides
    {"x {n a 1 }", "x 1", "/x[1] {n a 1 } 1"},
    // Pairs of indices.
    {"x 1 | x 2", "x 1", "/x[1] 2 1"}, // the first of its name
    {"- 1 | {n } 2", "z 8 | - 3",
     "[0] - z, [1] 1 8, [0] {n } -, [1] 2 3, /z[0] missing z, /z[1] missing 8"},
    {"x 1 | - 2", "x 1", "[1] 2 missing"},
    {"x 1 | {n } 2", "x 1", "[0] {n } missing, [1] 2 missing"},
    {"0 1", "? 1", ""}, // names by text
    {"{n } 1 | x 2", "x 2", "[0] {n } x, [1] 1 2"},
    // Nested tables.
    {"t {n u 1 } 5", "t {m u 2 | v 3 } 6",
     "/t[1]/u[1] 1 2, /t[1]/v[0] missing v, /t[1]/v[1] missing 3, /t[2] 5 6"},
    {"t {n u {o w 1 } | - 4 }", "t {n u {o w 2 } }", "/t[1]/u[1]/w[1] 1 2, [1] 4 missing"},
    {"- {n u 1 }", "- {n u 2 }", "[1]/u[1] 1 2"},
    {"t {n }", "t {m }", ""},
    {"t {n u } | x 1", "t {n } | x 2", "/t[1]/u[0] u missing, /x[1] 1 2"},
};

std::string differences(Table const& result) {
    std::string all;
    for (std::size_t j = 0; j < length(result, 0); ++j) {
        all += j < 2 ? "" : ", ";
        for (std::size_t i = 0; i < 3 && j > 0; ++i) {
            all += (i == 0 ? "" : " ") + brief(result.get(i, j));
        }
    }
    EXPECT_TRUE(all.empty() ? result.indices() == 0 : result.indices() == 3);
    return all;
}

TEST(TableCompare, ListsDifferences) {
    for (CompareCase const& row : compareCases) {
        SCOPED_TRACE(row.left + std::string(" compare ") + row.right);
        Ptr<Table> const left = brief(row.left);
        Ptr<Table> const right = brief(row.right, "u");
        Ptr<Table> result;
        EXPECT_EQ(outcome(left->compare(right, result, false)), "Ok");
        EXPECT_EQ(string(result->name()), "t and u");
        EXPECT_EQ(differences(*result), row.result);
        EXPECT_EQ(left->match(right, false), *row.result == '\0');
        EXPECT_FALSE(left->match(right, true));
    }
}

TEST(TableCompare, ResultHasThreeNamedIndices) {
    Ptr<Table> result;
    brief("x 1")->compare(brief("x 2"), result, false);
    EXPECT_EQ(brief(*result), "Xpath /x[1] | Left 1 | Right 2");
}

TEST(TableCompare, FlagIgnoresTheCaseOfItemsOnly) {
    Ptr<Table> result;
    brief("x aB {n u c }")->compare(brief("x Ab {n u C }"), result, true);
    EXPECT_EQ(differences(*result), "");
    brief("x a")->compare(brief("X A"), result, true);
    EXPECT_EQ(differences(*result),
              "/x[0] x missing, /x[1] a missing, /X[0] missing X, /X[1] missing A");
}

TEST(TableMatch, NeverEqualsWithFlag) {
    Ptr<Table> const t = brief("x 1");
    EXPECT_TRUE(t->match(t, false));
    EXPECT_FALSE(t->match(t, true));
    EXPECT_FALSE(t->match(nullptr, true));
}

} // namespace
} // namespace QX
