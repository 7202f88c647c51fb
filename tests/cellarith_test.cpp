#include "support.h"

#include <cmath>

namespace QX {
namespace {

struct Operation {
    Cell left;
    char const* op;
    Cell right;
    char const* result; // as printed; a text stands for a string cell of that text
};

char const* const notNumeric = "that cell is not numeric";

TEST(CellOperation, CombinesNumbers) {
    Operation const rows[] = {{Cell(6), "+", Cell(4), "10"},
                              {Cell(6), "-", Cell(4), "2"},
                              {Cell(6), "*", Cell(4), "24"},
                              {Cell(6), "/", Cell(4), "## 0 1073217536"},
                              {Cell(6), "/", Cell(0), "[Undefined]"},
                              {Cell(6), "/", Cell(-0.0), "[Undefined]"},
                              {Cell(6), "+", undefined(4), "[Undefined]"},
                              {undefined(6), "*", Cell(4), "[Undefined]"},
                              {Cell(7.9), "%", Cell(3.2), "1"},
                              {Cell(-7), "%", Cell(3), "-1"},
                              {Cell(7), "%", Cell(-3), "1"},
                              {Cell(7), "%", Cell(0.9), "[Undefined]"},
                              {Cell(7), "%", Cell(-0.9), "[Undefined]"},
                              {Cell(-2147483648.0), "%", Cell(-1), "0"},
                              {Cell(-2147483648.0), "%", Cell(-1.9), "0"},
                              {Cell(3e9), "%", Cell(10), "-8"},
                              {Cell(7), "%", Cell(NAN), "7"},
                              {undefined(7), "%", Cell(4), "3"},
                              {Cell(6), "^", Cell(4), notNumeric},
                              {Cell(6), "", Cell(4), notNumeric},
                              {Cell(6), "++", Cell(4), notNumeric},
                              {Cell(6), "+ ", Cell(4), notNumeric},
                              {Cell(6), "+", Cell("4 "), notNumeric},
                              {Cell(6), "+", Cell(), notNumeric},
                              {Cell(6), "+", Cell(table("t")), notNumeric},
                              {Cell(6), "+", Cell(Status()), notNumeric}};
    for (Operation const& row : rows) {
        SCOPED_TRACE(text(row.left) + row.op + text(row.right));
        Cell const result = row.left.operation(row.right, row.op);
        EXPECT_EQ(printed(result), row.result);
        bool const failed = row.result == notNumeric;
        EXPECT_EQ(result.isA(), failed ? Cell::StringCell : Cell::NumericCell);
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
