#include "brief.h"

namespace QX {
namespace {

struct MergeCase {
    char const* left;
    char const* right;
    char const* behind; // byName false
    char const* byName; // byName true, null when it is the same
};

MergeCase const mergeCases[] = {
    {"A 1 | B 2", "B 7 8 | C 9", "A 1 | B 2 | B 7 8 | C 9 -", "A 1 | B 7 8 | C 9 -"},
    {"A 1 | B 4 5 6", "B 9", "A 1 - - | B 4 5 6 | B 9", "A 1 - - | B 9 5 6"},
    {"B 4 5 6", "B 9 | C 1 2", "B 4 5 6 | B 9 - | C 1 2", "B 9 - 6 | C 1 2"},
    {"A 1", "X 1 2 | X 3", "A 1 | X 1 2 | X 3 -", "A 1 | X 3 -"}, // also found among those added
    {"A 1 | A 2", "A 9", "A 1 | A 2 | A 9", "A 9 | A 2"},
    {"", "A 1 | B", "A 1 | B -", nullptr},
    {"A 1 | B", "", "A 1 | B -", nullptr},
    {"", "", "", nullptr},
    {"A | | B 1", "| C 2", "A - | - - | B 1 | - - | C 2", "A - | - - | B 1 | C 2"},
    // Names by cell, the left one deciding.
    {"\"\" 1", "- 2", "\"\" 1 | - 2", nullptr},
    {"- 1", "\"\" 2", "- 1 | \"\" 2", "\"\" 2"},
    {"0.3 1", "0.30000000000000004 2", "0.3 1 | 0.30000000000000004 2", "0.30000000000000004 2"},
    {"1970-01-02 1", "1 2", "1970-01-02 1 | 1 2", "1 2"},
    {"a 1", "A 2", "a 1 | A 2", nullptr},
    // The name that an index has got by then counts: 0, 5e-324 and 1e-323 are neighbours in a row.
    {"0 a", "5e-324 b | 1e-323 c", "0 a | 5e-324 b | 1e-323 c", "1e-323 c"},
    {"5e-324 a", "0 b | 1e-323 c", "5e-324 a | 0 b | 1e-323 c", "0 b | 1e-323 c"},
};

TEST(TableMerge, PutsIndicesBehindOrOverThoseOfTheirName) {
    for (MergeCase const& row : mergeCases) {
        SCOPED_TRACE(row.left + std::string(" merge ") + row.right);
        Ptr<Table> const left = brief(row.left);
        Ptr<Table> const right = brief(row.right, "u");
        Ptr<Table> result;
        EXPECT_EQ(outcome(left->merge(right, result, false)), "Ok");
        EXPECT_EQ(named(result), std::string("t and u: ") + row.behind);
        EXPECT_EQ(outcome(left->merge(right, result, true)), "Ok");
        EXPECT_EQ(named(result),
                  std::string("t and u: ") + (row.byName == nullptr ? row.behind : row.byName));
    }
}

struct FillCase {
    char const* table;
    char const* operand;
    int count;
    char const* result;
};

FillCase const fillCases[] = {
    {"A 1 2 3 | X 4 5 6", "X 0", -1, "A 1 2 3 | X 0 0 0"},
    {"A 1 2 3 | X 4 5 6", "X 0", 5, "A 1 2 3 | X 0 0 0 0"},
    {"A 1 2 3 | X 4 5 6", "X 0", 2, "A 1 2 3 | X 0 0 0"},
    {"A 1 2 3 | X 4 5 6", "X 0", -7, "A 1 2 3 | X 0 0 0"},
    {"A 1 2 | X", "Y 0 | X 1 7 8 | Z", 4, "A 1 2 | X 1 1 1 | Y 0 0 0 | Z - - -"}, // 7 8 not read
    {"A", "A 1 | B 2", -1, "A | B"},                                              // only names
    {"A", "A 1 | B 2", 0, "A | B"},
    {"", "A 1 | B 2", 1, "A | B"},
    {"", "A 1 | B 2", 3, "A 1 1 | B 2 2"},
    {"A 1", "X 1 | X 2", 3, "A 1 | X 2 2"},
};

TEST(TableFill, FillsIndicesWithOneValue) {
    for (FillCase const& row : fillCases) {
        SCOPED_TRACE(row.table + std::string(" fill ") + row.operand + " " + std::to_string(row.count));
        Ptr<Table> result;
        EXPECT_EQ(outcome(brief(row.table)->fill(brief(row.operand), result, row.count)), "Ok");
        EXPECT_EQ(named(result), std::string("t and t: ") + row.result);
    }
}

TEST(TableFill, SharesOneBodyAmongAllFilled) {
    Ptr<Table> result;
    brief("X 1 2 3")->fill(brief("X {n }"), result, -1);
    EXPECT_EQ(nested(result->get("X", 1)).get(), nested(result->get("X", 3)).get());
}

TEST(TableFill, NeedsAValue) {
    for (char const* operand : {"", "X", "X | Y"}) {
        SCOPED_TRACE(operand);
        Ptr<Table> result = brief("R");
        EXPECT_EQ(outcome(brief("A 1 2")->fill(brief(operand), result, -1)),
                  "Fill Table must contain two rows");
        EXPECT_EQ(named(result), "t: R");
    }
}

} // namespace
} // namespace QX
