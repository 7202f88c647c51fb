#include "brief.h"

#include <vector>

namespace QX {
namespace {

struct SelectCase {
    char const* table;
    char const* operand;
    bool keepUnmatched;
    bool distinct;
    bool invert;
    char const* result; // with its name
};

SelectCase const selectCases[] = {
    {"A 1 2 | B 3 4 | C 5 6", "B | A Z", false, false, false, "t: B 3 4 | Z 1 2"},
    {"A 1 2 | B 3", "B | B \"\" | B -", false, false, false, "t: B 3 - | B 3 - | B 3 -"},
    {"A 1 | B 2", "X | B", false, false, false, "t: B 2"},
    {"A 1 | B 2", "X Y | B", true, false, false, "t: X | B 2"}, // no new name without a match
    {"A 1 | A 2", "A", false, false, false, "t: A 1"},
    {"A | B", "B C", false, false, false, "t: C"},
    {"A 1", "", true, false, false, "t: "},
    {"", "A", false, false, false, "t: "},
    {"", "A", true, false, false, "t: A"},
    // Names by text; the index gets the operand's cell.
    {"0 1", "?", false, false, false, "t: ? 1"},
    {"1970-01-02 x", "1", false, false, false, "t: 1 x"},
    {"\"\" 1", "-", false, false, false, "t: - 1"},
    {"a 1", "A", false, false, false, "t: "},
    // Inverted.
    {"A 1 2 | B 3 4 | C 5", "B", false, false, true, "t: A 1 2 | C 5 -"},
    {"A 1 | B 2", "A | X Y | B", false, false, true, "t: "},
    {"B 1 | A 2 | B 3", "A", false, false, true, "t: B 1 | B 1"}, // picked by name, so the first
    {"A 1 | - 2 | {n } 3", "A", false, false, true, "t: "},
    {"A 1 | - 2 | {n } 3", "A", true, false, true, "t: \"\" 2 | \"\" 2"},
    {"{n } 3", "A", true, false, true, "t: \"\""},
    {"- 1 | A 2", "-", true, false, true, "t: \"\" 1 | A 2"}, // an empty name names nothing
    {"? 1", "A", false, false, true, "t: 0 1"},               // by the cell of its text
    // Without repeated rows.
    {"A 1 2 1 2 | B x y x z", "A | B", false, true, false, "Distinct: A 1 2 2 | B x y z"},
    {"A A 1 | B B 2", "A | B", false, true, false, "Distinct: A 1 | B 2"}, // like the names
    {"A 1 1", "A | X", true, true, false, "Distinct: A 1 | X -"},
    {"A 0.3 0.30000000000000004 0.30000000000000010", "A", false, true, false,
     "Distinct: A 0.3 0.3000000000000001"},
    {"A \"\" - \"\"", "A", false, true, false, "Distinct: A \"\" -"}, // the earlier one decides
    {"A - \"\" ?", "A", false, true, false, "Distinct: A -"},
    {"A 1 | B 2", "A", false, true, true, "Distinct: B 2"},
    {"A nan nan", "A", false, true, false, "Distinct: A nan"},
    {"A 1 1970-01-02 2", "A", false, true, false, "Distinct: A 1 2"},
    {"A 1", "", false, true, false, "Distinct: "},
};

TEST(TableSelect, PicksIndicesByName) {
    for (SelectCase const& row : selectCases) {
        SCOPED_TRACE(row.table + std::string(" select ") + row.operand + " " +
                     std::to_string(row.keepUnmatched) + std::to_string(row.distinct) +
                     std::to_string(row.invert));
        Ptr<Table> result;
        EXPECT_EQ(outcome(brief(row.table)->select(brief(row.operand), result, row.keepUnmatched,
                                                   row.distinct, row.invert)),
                  "Ok");
        EXPECT_EQ(named(result), row.result);
    }
}

TEST(TableSelect, LeavesTheResultWhenItFails) {
    Ptr<Table> result = brief("R");
    for (bool const invert : {false, true}) {
        EXPECT_EQ(
            raised([&] { (void)brief("A 1")->select(brief("A | B 1 2"), result, true, true, invert); }),
            "Select items must be specified as indices not items in the selection table");
    }
    EXPECT_EQ(outcome(brief("A 1")->select(brief("A | {n } | B"), result, true, true, false)),
              "Cell translation to string not supported for this type");
    EXPECT_EQ(named(result), "t: R");
}

struct FilterCase {
    char const* table;
    char const* operand;
    bool keepEmpty;
    bool exclude;
    char const* result;
};

FilterCase const filterCases[] = {
    {"A 2 1 2 3 | B u v w x", "A 1 2", false, false, "A 1 2 2 | B v u w"},
    {"A 2 1 2 3 | B u v w x", "A 1 2", false, true, "A 3 | B x"},
    {"A 1 2 | B u v", "A 2 2", false, false, "A 2 2 | B v v"},
    {"A 1 2 1 1 | B x x y x", "A 1 | B x", false, false, "A 1 1 | B x x"},
    {"A 1 2 1 3 | B x x y y", "A 1 | B x", false, true, "A 3 | B y"},
    {"A 1 - 2 | B x y", "A 1 | B y z", false, false, "A - | B y"}, // the value that A lacks is empty
    {"A 1 - 2 | B x y", "B y z | A 1", false, false, "A - | B y"},
    {"A 1 2 | B 3", "X 1", false, false, "A | B"},
    {"A 1 2 | B 3", "X 1", false, true, "A 1 2 | B 3 -"},
    {"A 1 2", "A", false, false, "A"},
    {"A 1 - 2", "A", false, true, "A 1 2"},
    {"A 1 - 2", "A", true, true, "A 1 - 2"},
    {"A | | B 1", "B 1", false, false, "A - | - - | B 1"},
    // Cells are compared to be listed, texts to be dropped.
    {"A 1970-01-02 1 x", "A 1", false, false, "A 1970-01-02 1"},
    {"A 1970-01-02 1 x", "A 1", false, true, "A 1970-01-02 x"},
    {"A 0.3 0.30000000000000004", "A 0.3", false, false, "A 0.3 0.30000000000000004"},
    {"A 0.3 0.30000000000000004", "A 0.3", false, true, "A 0.30000000000000004"},
    {"A - \"\" ? 0", "A -", false, false, "A -"},
    {"A - \"\" ? 0", "A \"\"", false, false, "A - \"\""},
    {"A - \"\" ? 0", "A ?", false, false, "A - ? 0"},
    {"A - \"\" ? 0", "A ?", true, true, "A - \"\""},
    {"A - \"\" {n } 1", "A 1 -", true, true, "A"}, // the text of an empty value drops empty ones
    {"A a A", "A A", false, false, "A A"},
    {"A nan 1 nan", "A nan 1", false, false, "A nan nan 1"},
    {"A nan 1", "A nan", false, true, "A 1"},
    {"A !x !y 1", "A !y", false, false, "A !x !y"},
    {"A !x !y 1", "A !y", false, true, "A !x 1"},
    // A walk makes good for a name without text, which stands for the empty name.
    {"- 1 2 | A 3 4", "{n } 2", false, false, "- 2 | A 4"},
    {"A 3 4", "{n } 2", false, true, "A 3 4"},
};

TEST(TableFilter, PicksRowsByValue) {
    for (FilterCase const& row : filterCases) {
        SCOPED_TRACE(row.table + std::string(" filter ") + row.operand + " " +
                     std::to_string(row.keepEmpty) + std::to_string(row.exclude));
        Ptr<Table> result;
        EXPECT_EQ(
            outcome(brief(row.table)->filter(brief(row.operand), result, row.keepEmpty, row.exclude)),
            "Ok");
        EXPECT_EQ(named(result), std::string("t: ") + row.result);
    }
}

TEST(TableFilter, FindsManyValuesAsFew) {
    std::string const column = "A 0.3 0.30000000000000004 1970-01-02 1 - ? !x x x";
    Ptr<Table> result;
    brief(column)->filter(brief("A x 1 0.3 - ! y z 1"), result, false, false);
    EXPECT_EQ(brief(*result), "A x x 1970-01-02 1 0.3 0.30000000000000004 - !x 1970-01-02 1");
}

TEST(TableFilter, GoesOnFromWhatTheResultHoldsAfterAFailedStep) {
    std::string const noText = "Cell translation to string not supported for this type";
    Ptr<Table> const t = brief("A 1 2");
    Ptr<Table> result;
    EXPECT_EQ(outcome(t->filter(brief("{n } 1 | A 1"), result, false, false)), noText);
    EXPECT_FALSE(result);
    EXPECT_EQ(outcome(t->filter(brief("A 1 2 | {n } 1"), result, false, false)), noText);
    EXPECT_EQ(named(result), "t: A 1 2");
    result = brief("A 5 1 | B 6 7", "R");
    EXPECT_EQ(outcome(t->filter(brief("{n } 1 | A 1"), result, false, false)), "Ok");
    EXPECT_EQ(named(result), "R: A 1 | B 7");
}

TEST(TableFilter, WithoutConditionsLeavesTheResult) {
    Ptr<Table> result = brief("R");
    EXPECT_EQ(outcome(brief("A 1")->filter(brief(""), result, false, true)), "Ok");
    EXPECT_EQ(named(result), "t: R");
}

} // namespace
} // namespace QX
