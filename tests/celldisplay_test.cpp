#include "brief.h"

#include <iomanip>

namespace QX {
namespace {

TEST(CellDisplay, OfEveryKind) {
    for (Row const& row : rows(R"(
        - ; [Empty]
        "" ;
        !x ;
        a ; a
        3 ; 3
        -0 ; -0
        1234567 ; 1.23457e+06
        12.5 ; ## 0 1076428800
        -0.5 ; ## 0 -1075838976
        0.1 ; ## -1717986918 1069128089
        3e9 ; ## -1073741824 1105615371   <- whole, but beyond the ints
        2.0000000000000004 ; 2
        inf ; inf
        ?2.5 ; [Undefined]
        {t A 1 } ; Table - t|Index 0 <A> 1 |
    )")) {
        Cell cell;
        std::istringstream(row[0]) >> cell;
        std::string lines = printed(cell);
        std::replace(lines.begin(), lines.end(), '\n', '|');
        EXPECT_EQ(lines, row[1]) << row.line;
    }
}

TEST(CellDisplay, PrintedNumbersReadBack) {
    for (double const value : {0.1, -2.0 / 3, 1e300, 3e9, 123456.0, -99999.5}) {
        double back = -1;
        EXPECT_TRUE(Cell(Str(printed(Cell(value)))).get(back).ok());
        EXPECT_EQ(back, value);
    }
    EXPECT_EQ(Cell(Str(printed(Cell()))).isA(), Cell::EmptyCell);
    EXPECT_TRUE(Cell(Str(printed(Cell(NAN)))).compare(Cell(NAN), false));
}

TEST(CellDisplay, FollowsTheStreamsFormatting) {
    Cell const half(12.5);
    Cell const whole(12);
    std::ostringstream os;
    os << std::hex << std::showbase << half << ", " << whole << std::dec << '\n';
    os << std::showpos << half << ", " << whole << std::noshowpos << '\n';
    os << std::setfill('.') << std::setw(9) << whole << std::setw(9) << Cell() << std::setw(9)
       << Cell("abc") << std::left << std::setw(9) << whole << '\n';
    os << std::setprecision(12) << Cell(1234567) << std::boolalpha << Cell(1) << '\n';
    os << std::fixed << std::setprecision(2) << whole << ", " << half << ", " << AnalyticDouble(5, 2);
    EXPECT_EQ(os.str(), "## 0 0x40290000, 12\n"
                        "## +0 +1076428800, +12\n"
                        ".......12..[Empty]......abc12.......\n"
                        "12345671\n"
                        "12.00, ## 0 1076428800, 2.50");
}

struct Quoted : Cell {
    using Cell::Cell;
    std::ostream& display(std::ostream& os) const override { return Cell::display(os << '"') << '"'; }
};

TEST(CellDisplay, PrintingIsVirtual) {
    EXPECT_EQ(printed(Quoted(Str("a"))), "\"a\"");
}

} // namespace
} // namespace QX
