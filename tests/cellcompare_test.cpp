#include "support.h"

#include <cmath>
#include <limits>
#include <vector>

namespace QX {
namespace {

struct Kind {
    char const* name;
    Cell cell;
    char const* equals;   // '1' where compare() with the cell of that row is true
    char const* lessThan; // the same for operator<
};

TEST(CellOrder, BothMatricesHold) {
    Ptr<Table> const shared = table("t");
    Kind const kinds[] = {{"empty", Cell(), "110000100", "111111111"},
                          {"empty text", Cell(""), "010000001", "101100010"},
                          {"text", Cell("abc"), "001000000", "100000010"},
                          {"date", Cell("1970-01-13"), "000110000", "101001110"},
                          {"12", Cell(12), "000110000", "011000000"},
                          {"3", Cell(3), "000001000", "011010000"},
                          {"undefined", undefined(), "000000100", "011011000"},
                          {"table", Cell(shared), "000000010", "000000000"},
                          {"error", Cell(Status("x", Status::Error, -1)), "000000001", "000000000"}};
    for (Kind const& row : kinds) {
        std::string equals;
        std::string folded;
        std::string lessThan;
        for (Kind const& column : kinds) {
            equals += row.cell.compare(column.cell, false) ? '1' : '0';
            folded += row.cell.compare(column.cell, true) ? '1' : '0';
            lessThan += row.cell < column.cell ? '1' : '0';
        }
        EXPECT_EQ(equals, row.equals) << row.name;
        EXPECT_EQ(folded, row.equals) << row.name;
        EXPECT_EQ(lessThan, row.lessThan) << row.name;
    }
}

TEST(CellOrder, TextsFoldCaseOnlyForEquality) {
    EXPECT_FALSE(Cell("abc").compare(Cell("ABC"), false));
    EXPECT_TRUE(Cell("abc").compare(Cell("ABC"), true));
    EXPECT_TRUE(Cell("ABC") < Cell("abc"));
    EXPECT_FALSE(Cell("abc") < Cell("ABC"));
    EXPECT_TRUE(Cell("z") < Cell("\xc3\xa4"));
    EXPECT_TRUE(Cell("ab") < Cell("abc"));
}

TEST(CellOrder, ErrorsAreAllEqual) {
    Cell const error(Status("x", Status::Error, -1));
    EXPECT_TRUE(error.compare(Cell(Status()), false));
    EXPECT_TRUE(error.compare(Cell("#Critical: other"), true));
    EXPECT_FALSE(error.compare(Cell("x"), false));
}

struct Numbers {
    double left;
    double right;
    bool equal;
};

TEST(CellOrder, NumbersEqualTheirNeighbours) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const least = std::numeric_limits<double>::denorm_min();
    double const greatest = std::numeric_limits<double>::max();
    double const one = std::nextafter(1.0, 2.0);
    Numbers const rows[] = {
        {0.1 + 0.2, 0.3, true},
        {1.0, one, true},
        {1.0, std::nextafter(one, 2.0), false},
        {-1.0, -one, true},
        {-1.0, std::nextafter(-one, -2.0), false},
        {1.0, -1.0, false},
        {0.0, -0.0, true},
        {0.0, least, true},
        {-0.0, least, false},
        {-0.0, -least, true},
        {-least, least, false},
        {greatest, INFINITY, true},
        {greatest, -greatest, false},
        {INFINITY, INFINITY, true},
        {INFINITY, -INFINITY, false},
        {nan, nan, true},
        {nan, std::copysign(nan, -1.0), false},
        {nan, 1.0, false},
        {nan, INFINITY, false},
    };
    for (Numbers const& row : rows) {
        SCOPED_TRACE(text(Cell(row.left)) + " and " + text(Cell(row.right)));
        EXPECT_EQ(Cell(row.left).compare(Cell(row.right), false), row.equal);
        EXPECT_EQ(Cell(row.right).compare(Cell(row.left), false), row.equal);
        EXPECT_EQ(Cell(row.left) < Cell(row.right), row.left < row.right);
        EXPECT_EQ(Cell(row.right) < Cell(row.left), row.right < row.left);
    }
    EXPECT_TRUE(undefined(5).compare(Cell(5), false)) << "validity does not count";
    EXPECT_TRUE(Cell(4) < undefined(5));
}

TEST(CellOrder, DatesJoinTextsAndNumbers) {
    Cell const date("1970-01-13");
    EXPECT_TRUE(date.compare(Cell(12.9), false));
    EXPECT_TRUE(Cell(12.9).compare(date, false));
    EXPECT_FALSE(Cell(13).compare(date, false));
    EXPECT_TRUE(date < Cell(11)) << "true when the number's date is the lesser one";
    EXPECT_FALSE(date < Cell(13));
    EXPECT_TRUE(Cell(13) < date);
    EXPECT_FALSE(Cell(11) < date);
    EXPECT_TRUE(Cell("1969-12-31").compare(Cell(-1), false));
    EXPECT_TRUE(date < Cell(NAN)) << "a number that is no date counts as the least int";
    EXPECT_FALSE(Cell(NAN) < date);
    EXPECT_FALSE(Cell("1970-1-13").compare(Cell(12), false));
    EXPECT_TRUE(Cell(11) < Cell("1970-1-13"));
}

TEST(CellOrder, TablesAreEqualAsObjects) {
    Ptr<Table> const t = table("t", {{"A"}});
    Ptr<Table const> const constant(t);
    EXPECT_TRUE(Cell(t).compare(Cell(t), false));
    EXPECT_FALSE(Cell(t).compare(Cell(table("t", {{"A"}})), false));
    EXPECT_FALSE(Cell(t).compare(Cell(Ptr<Table>(new Table(*t))), false));
    EXPECT_FALSE(Cell(constant).compare(Cell(constant), false));
}

TEST(CellOrder, TablesOrderByTheirShape) {
    Cell const wide(table("a", {{1, 2, 3, 4, 5}, {1}}));
    Cell const tall(table("b", {{1, 2, 3, 4}, {}, {1}}));
    Cell const same(table("c", {{}, {1, 2, 3, 4, 5}}));
    Cell const bodiless(Ptr<Table>(new Table(Ptr<TableImplementation>())));
    EXPECT_TRUE(wide < tall);
    EXPECT_TRUE(tall < wide);
    EXPECT_FALSE(wide < same);
    EXPECT_FALSE(same < wide);
    EXPECT_TRUE(wide < bodiless) << "true when the other one is smaller";
    EXPECT_FALSE(bodiless < wide);
    EXPECT_FALSE(bodiless < Cell(table("d")));
}

} // namespace
} // namespace QX
