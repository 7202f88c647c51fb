#include "operations.h"

namespace QX {
namespace {

TEST(TableOverlay, LaysCellsOverCells) {
    expectResults({"overlay items"}, R"(
        A 1 2 3 | B 4 5 6 ; A 9 - 7 ; A 9 2 7 | B 4 5 6
        A 1 2 3 ; A "" ? 7 ; A 1 2 7
        A 1 ; X 2 | Y 3 ; A 1 | Y 3 | X 2
        A 1 ; X 2 | X 3 ; A 1 | X 3 | X 2   <- looked up in the lower table only
        A 1 ; X 2 3 | | Y - 4 ; A 1 | Y - 4 | X 2 3
        ; X 1 | Y 2 ; Y 2 | X 1
        A | | B 2 ; B 3 ; A - | - - | B 3
        A 1 | B ; ; A 1 | B -
        A 1 | A 2 ; A 8 | A 9 ; A 8 | A 2
        A {n X 1 2 } ; A {m X 9 } ; A {m X 9 2 }
        A {n X {o P 1 | Q 2 } } ; A {m X {p P 7 } } ; A {m X {p P 7 | Q 2 } }
        A {n X 1 } ; A 5 ; A 5
        A 5 ; A {m X 1 | Y 2 } ; A {m Y 2 | X 1 }   <- over a new empty table
    )");
    expectResults({"overlay empties items"}, R"(
        A 1 2 3 | B 4 5 6 ; A 9 - 7 ; A 9 - 7 | B 4 5 6
        A 1 2 3 ; A "" ? 7 ; A "" ? 7
        A 1 | B 2 ; A 9 8 | B ; A 9 8 | B - -
        A 1 2 3 ; A 9 ; A 9 2 3
        A 1 ; X 2 3 | - - - | Y 4 ; A 1 | Y 4 - | - - - | X 2 3
        "" 1 ; - 2 ; "" 1 | - 2
        - 1 ; "" 2 ; "" 2
        A {n X 1 } ; A {m X - } ; A {m X - }
        A {n X 1 } ; A - ; A {n X 1 }   <- nothing empty replaces a table
        A {n X 1 } ; A ? ; A {n X 1 }
    )");
    expectResults({"overlay empties"}, R"(
        A 1 | B 2 ; A 9 8 | B ; A 9 | B -   <- no item beyond this table's
        A 1 2 3 ; A 9 ; A 9 - -   <- all of this table's
    )");
    expectResults({"overlay matched items"}, R"(
        A 1 ; X 2 | Y 3 ; A 1
        0.3 1 ; 0.30000000000000004 2 ; 0.30000000000000004 2
        A 5 ; A {m X 1 | Y 2 } ; A {m }
    )");
    expectResults({"overlay"}, R"(
        ; X 1 | Y 2 ;   <- nothing is laid, so nothing is added
        A 5 ; A {m X 1 | Y 2 } ; A {m }
    )");
    expectResults({"overlay matched"}, R"(
        A {n X 1 | Y 2 } ; A {m Z 3 | X 9 4 } ; A {m X 9 | Y 2 }
    )");
}

TEST(TableOverlay, WithoutOperandCopiesTheTable) {
    Ptr<Table> result;
    EXPECT_EQ(told("overlay", *brief("A 1 | B | C 2 3"), nullptr, result), "A 1 - | B - - | C 2 3");
    EXPECT_EQ(string(result->name()), "t");
}

TEST(TableOverlay, MakesNewTablesOnlyWhereItLaysThem) {
    Ptr<Table> const lower = brief("A {n X 1 } {o Y 2 }");
    Ptr<Table> const upper = brief("A {m X 9 } | B {p Z 3 }", "u");
    Ptr<Table> result;
    EXPECT_EQ(told("overlay items", *lower, upper, result), "A {m X 9 } {o Y 2 } | B {p Z 3 }");
    EXPECT_EQ(brief(*lower), "A {n X 1 } {o Y 2 }");
    EXPECT_NE(nested(result->get(0, 1)).get(), nested(upper->get(0, 1)).get());
    EXPECT_EQ(nested(result->get(0, 2)).get(), nested(lower->get(0, 2)).get());
    EXPECT_NE(nested(result->get(1, 1)).get(), nested(upper->get(1, 1)).get());
}

} // namespace
} // namespace QX
