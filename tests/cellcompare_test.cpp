#include "brief.h"

namespace QX {
namespace {

TEST(CellOrder, BothMatricesHold) {
    // '1' where compare() with the cell of that row is true, then the same for operator<.
    std::vector<Row> const kinds = rows(R"(
        -          ; 110000100 ; 111111111
        ""         ; 010000001 ; 101100010
        abc        ; 001000000 ; 100000010
        1970-01-13 ; 000110000 ; 101001110
        12         ; 000110000 ; 011000000
        3          ; 000001000 ; 011010000
        ?          ; 000000100 ; 011011000
        {t }       ; 000000010 ; 000000000
        !x         ; 000000001 ; 000000000
    )");
    std::vector<Cell> cells;
    for (Row const& row : kinds) {
        std::istringstream(row[0]) >> cells.emplace_back();
    }
    for (std::size_t i = 0; i < cells.size(); ++i) {
        std::string equals;
        std::string folded;
        std::string lessThan;
        for (Cell const& other : cells) {
            equals += cells[i].compare(other, false) ? '1' : '0';
            folded += cells[i].compare(other, true) ? '1' : '0';
            lessThan += cells[i] < other ? '1' : '0';
        }
        EXPECT_EQ(equals, kinds[i][1]) << kinds[i].line;
        EXPECT_EQ(folded, kinds[i][1]) << kinds[i].line;
        EXPECT_EQ(lessThan, kinds[i][2]) << kinds[i].line;
    }
}

/// All that holds of two cells: "=" when they are equal, "<" and ">"; "~" when nothing does.
std::string relation(Cell const& left, Cell const& right) {
    EXPECT_EQ(left.compare(right, false), right.compare(left, false));
    std::string const all = std::string(left.compare(right, false) ? "=" : "") +
                            (left < right ? "<" : "") + (right < left ? ">" : "");
    return all.empty() ? "~" : all;
}

void expectRelations(std::string const& cases) {
    std::istringstream in(cases);
    Cell left;
    Cell right;
    for (std::string expected; in >> left >> expected >> right;) {
        EXPECT_EQ(relation(left, right), expected) << brief(left) << " and " << brief(right);
    }
}

TEST(CellOrder, NumbersEqualTheirNeighbours) {
    expectRelations(R"(
        0.30000000000000004 => 0.3   1 =< 1.0000000000000002   1 < 1.0000000000000004
        -1 => -1.0000000000000002   -1 > -1.0000000000000004   1 > -1
        0 = -0   0 =< 5e-324   -0 < 5e-324   -0 => -5e-324   -5e-324 < 5e-324
        1.7976931348623157e308 =< inf   1.7976931348623157e308 > -1.7976931348623157e308
        inf = inf   inf > -inf   nan = nan   nan ~ -nan   nan ~ 1   nan ~ inf
        ?5 = 5   4 < ?5
    )");
    Cell const nextToInfinity("## 1 2146435072"); // the NaN with the smallest bits
    EXPECT_TRUE(nextToInfinity.compare(Cell(INFINITY), false));
    EXPECT_TRUE(nextToInfinity.compare(Cell("## 2 2146435072"), false));
    EXPECT_FALSE(nextToInfinity.compare(Cell("## 3 2146435072"), false));
}

TEST(CellOrder, DatesJoinTextsAndNumbers) {
    // A date is less than a number whose date is the lesser one; a number that is no date is the least.
    expectRelations(R"(
        1970-01-13 = 12.9   1970-01-13 < 11   1970-01-13 > 13   1970-01-13 < nan   1969-12-31 = -1
        1970-1-13 > 12   11 < 1970-1-13
    )");
}

TEST(CellOrder, TextsFoldCaseOnlyForEquality) {
    expectRelations("abc > ABC   z < \xc3\xa4   ab < abc   !x = !y");
    EXPECT_TRUE(Cell("abc").compare(Cell("ABC"), true));
    EXPECT_TRUE(Cell(Status()).compare(Cell("#Critical: x"), true));
}

TEST(CellOrder, TablesAreEqualAsObjectsAndOrderedByTheirShape) {
    Ptr<Table> const t = brief("A");
    Ptr<Table const> const constant(t);
    EXPECT_EQ(relation(Cell(t), Cell(t)), "=");
    EXPECT_EQ(relation(Cell(t), Cell(Ptr<Table>(new Table(*t)))), "~");
    EXPECT_EQ(relation(Cell(constant), Cell(constant)), "~") << "copied each time";
    expectRelations("{a 1 2 3 4 5 | 1 } <> {b 1 2 3 4 | | 1 }   {a 1 2 3 4 5 | 1 } ~ {c | 1 2 3 4 5 }");
    Cell const bodiless(Ptr<Table>(new Table(Ptr<TableImplementation>())));
    EXPECT_EQ(relation(Cell(t), bodiless), "<") << "true when the other one is smaller";
    EXPECT_EQ(relation(bodiless, Cell(brief(""))), "~");
}

} // namespace
} // namespace QX
