#include "brief.h"

namespace QX {
namespace {

TEST(CellOperation, CombinesNumbers) {
    std::istringstream in(R"(
        6 + 4 10   6 - 4 2   6 * 4 24   6 / 4 1.5   6 / -0 ?   6 + ?4 ?   ?6 * 4 ?   inf - inf nan
        7.9 % 3.2 1   -7 % 3 -1   7 % -3 1   7 % -0.9 ?   -2147483648 % -1.9 0   3e9 % 10 -8
        7 % nan 7   ?7 % 4 3
    )");
    Cell left;
    Cell right;
    for (std::string op, result; in >> left >> op >> right >> result;) {
        EXPECT_EQ(brief(left.operation(right, Str(op))), result)
            << brief(left) << ' ' << op << ' ' << brief(right);
    }
}

TEST(CellOperation, NeedsNumbersAndAnOperator) {
    for (char const* const op : {"^", "", "+ "}) {
        EXPECT_EQ(brief(Cell(6).operation(Cell(4), op)), "that cell is not numeric") << op;
    }
    for (Cell const& other : {Cell("x"), Cell(), Cell(Status()), Cell(brief(""))}) {
        EXPECT_EQ(brief(Cell(6).operation(other, "+")), "that cell is not numeric");
        EXPECT_EQ(brief(other.operation(Cell(6), "+")), "!Cell operation not supported for this type");
    }
}

} // namespace
} // namespace QX
