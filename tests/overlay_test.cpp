#include "brief.h"

namespace QX {
namespace {

struct OverlayCase {
    char const* lower;
    char const* upper;
    bool matchedOnly;
    bool emptyOverwrites;
    bool operandItems;
    char const* result;
};

OverlayCase const overlayCases[] = {
    {"A 1 2 3 | B 4 5 6", "A 9 - 7", false, false, true, "A 9 2 7 | B 4 5 6"},
    {"A 1 2 3 | B 4 5 6", "A 9 - 7", false, true, true, "A 9 - 7 | B 4 5 6"},
    {"A 1 2 3", "A \"\" ? 7", false, false, true, "A 1 2 7"},
    {"A 1 2 3", "A \"\" ? 7", false, true, true, "A \"\" ? 7"},
    {"A 1 | B 2", "A 9 8 | B", false, true, true, "A 9 8 | B - -"},
    {"A 1 | B 2", "A 9 8 | B", false, true, false, "A 9 | B -"}, // no item beyond this table's
    {"A 1 2 3", "A 9", false, true, false, "A 9 - -"},           // all of this table's
    {"A 1 2 3", "A 9", false, true, true, "A 9 2 3"},
    // Indices that the lower table lacks.
    {"A 1", "X 2 | Y 3", false, false, true, "A 1 | Y 3 | X 2"},
    {"A 1", "X 2 | Y 3", true, false, true, "A 1"},
    {"A 1", "X 2 | X 3", false, false, true, "A 1 | X 3 | X 2"}, // looked up in the lower table only
    {"A 1", "X 2 3 | | Y - 4", false, false, true, "A 1 | Y - 4 | X 2 3"},
    {"A 1", "X 2 3 | - - - | Y 4", false, true, true, "A 1 | Y 4 - | - - - | X 2 3"},
    {"", "X 1 | Y 2", false, false, true, "Y 2 | X 1"},
    {"", "X 1 | Y 2", false, false, false, ""}, // nothing is laid, so nothing is added
    {"A | | B 2", "B 3", false, false, true, "A - | - - | B 3"},
    {"A 1 | B", "", false, false, true, "A 1 | B -"},
    {"A 1 | A 2", "A 8 | A 9", false, false, true, "A 8 | A 2"},
    // Names by cell.
    {"\"\" 1", "- 2", false, true, true, "\"\" 1 | - 2"},
    {"- 1", "\"\" 2", false, true, true, "\"\" 2"},
    {"0.3 1", "0.30000000000000004 2", true, false, true, "0.30000000000000004 2"},
    // Nested tables.
    {"A {n X 1 2 }", "A {m X 9 }", false, false, true, "A {m X 9 2 }"},
    {"A {n X 1 | Y 2 }", "A {m Z 3 | X 9 4 }", true, false, false, "A {m X 9 | Y 2 }"},
    {"A {n X {o P 1 | Q 2 } }", "A {m X {p P 7 } }", false, false, true, "A {m X {p P 7 | Q 2 } }"},
    {"A {n X 1 }", "A -", false, true, true, "A {n X 1 }"}, // nothing empty replaces a table
    {"A {n X 1 }", "A ?", false, true, true, "A {n X 1 }"},
    {"A {n X 1 }", "A 5", false, false, true, "A 5"},
    {"A 5", "A {m X 1 | Y 2 }", false, false, true, "A {m Y 2 | X 1 }"}, // over a new empty table
    {"A 5", "A {m X 1 | Y 2 }", true, false, true, "A {m }"},
    {"A 5", "A {m X 1 | Y 2 }", false, false, false, "A {m }"},
};

TEST(TableOverlay, LaysCellsOverCells) {
    for (OverlayCase const& row : overlayCases) {
        SCOPED_TRACE(row.lower + std::string(" overlay ") + row.upper + " " +
                     std::to_string(row.matchedOnly) + std::to_string(row.emptyOverwrites) +
                     std::to_string(row.operandItems));
        Ptr<Table> result;
        EXPECT_EQ(outcome(brief(row.lower)->overlay(brief(row.upper, "u"), result, row.matchedOnly,
                                                    row.emptyOverwrites, row.operandItems)),
                  "Ok");
        EXPECT_EQ(named(result), std::string("u: ") + row.result);
    }
}

TEST(TableOverlay, WithoutOperandCopiesTheTable) {
    Ptr<Table> result;
    EXPECT_EQ(outcome(brief("A 1 | B | C 2 3")->overlay(nullptr, result, true, false, true)), "Ok");
    EXPECT_EQ(named(result), "t: A 1 - | B - - | C 2 3");
}

TEST(TableOverlay, MakesNewTablesOnlyWhereItLaysThem) {
    Ptr<Table> const lower = brief("A {n X 1 } {o Y 2 }");
    Ptr<Table> const upper = brief("A {m X 9 } | B {p Z 3 }", "u");
    Ptr<Table> result;
    lower->overlay(upper, result, false, false, true);
    EXPECT_EQ(brief(*result), "A {m X 9 } {o Y 2 } | B {p Z 3 }");
    EXPECT_EQ(brief(*lower), "A {n X 1 } {o Y 2 }");
    EXPECT_EQ(brief(*upper), "A {m X 9 } | B {p Z 3 }");
    EXPECT_NE(nested(result->get(0, 1)).get(), nested(upper->get(0, 1)).get());
    EXPECT_EQ(nested(result->get(0, 2)).get(), nested(lower->get(0, 2)).get());
    EXPECT_NE(nested(result->get(1, 1)).get(), nested(upper->get(1, 1)).get());
}

} // namespace
} // namespace QX
