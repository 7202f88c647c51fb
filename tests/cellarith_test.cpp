#include "support.h"

#include <cmath>

namespace QX {
namespace {

struct Operation {
    Cell left;
    char const* op;
    Cell right;
    char const* result; // as printed
};

TEST(CellOperation, CombinesNumbers) {
    char const* const undefinedText = "[Undefined]";
    Operation const rows[] = {
        {Cell(6), "+", Cell(4), "10"},
        {Cell(6), "-", Cell(4), "2"},
        {Cell(6), "*", Cell(4), "24"},
        {Cell(6), "/", Cell(4), "## 0 1073217536"},
        {Cell(6), "/", Cell(-0.0), undefinedText},
        {Cell(6), "+", undefined(4), undefinedText},
        {undefined(6), "*", Cell(4), undefinedText},
        {Cell(7.9), "%", Cell(3.2), "1"},
        {Cell(-7), "%", Cell(3), "-1"},
        {Cell(7), "%", Cell(-3), "1"},
        {Cell(7), "%", Cell(-0.9), undefinedText},
        {Cell(-2147483648.0), "%", Cell(-1.9), "0"},
        {Cell(3e9), "%", Cell(10), "-8"},
        {Cell(7), "%", Cell(NAN), "7"},
        {undefined(7), "%", Cell(4), "3"},
    };
    for (Operation const& row : rows) {
        SCOPED_TRACE(text(row.left) + row.op + text(row.right));
        Cell const result = row.left.operation(row.right, row.op);
        EXPECT_EQ(result.isA(), Cell::NumericCell);
        EXPECT_EQ(printed(result), row.result);
    }
}

TEST(CellOperation, NeedsANumberAndAnOperator) {
    Cell const results[] = {
        Cell(6).operation(Cell(4), "^"),         Cell(6).operation(Cell(4), ""),
        Cell(6).operation(Cell(4), "+ "),        Cell(6).operation(Cell("4 "), "+"),
        Cell(6).operation(Cell(), "+"),          Cell(6).operation(Cell(Status()), "+"),
        Cell(6).operation(Cell(table("t")), "+")};
    for (Cell const& result : results) {
        EXPECT_EQ(result.isA(), Cell::StringCell);
        EXPECT_EQ(text(result), "that cell is not numeric");
    }
}

TEST(CellOperation, LeavesItsOperandsAlone) {
    Cell const left(6);
    Cell const right(4);
    left.operation(right, "*");
    EXPECT_EQ(printed(left), "6");
    EXPECT_EQ(printed(right), "4");
    double difference = 0;
    EXPECT_TRUE(Cell(INFINITY).operation(Cell(INFINITY), "-").get(difference).ok());
    EXPECT_TRUE(std::isnan(difference));
}

TEST(CellOperation, OtherKindsGiveAnError) {
    for (Cell const& left :
         {Cell(), Cell("abc"), Cell(table("t")), Cell(Status("x", Status::Error, -1))}) {
        for (char const* const op : {"+", "%", "?"}) {
            Cell const result = left.operation(Cell(1), op);
            EXPECT_EQ(result.isA(), Cell::ErrorCell);
            EXPECT_EQ(text(result), "#Err: Cell operation not supported for this type");
        }
    }
}

} // namespace
} // namespace QX
