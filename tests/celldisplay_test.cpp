#include "brief.h"

#include <iomanip>
#include <locale>

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

struct German : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(CellDisplay, WhatOtherFormatsAndTinyNumbersPrintDoesNotReadBack) {
    Cell const tiny(1.054571817646156e-34); // counts as whole
    Cell const half(12.5);
    auto const readsBack = [](Cell const& cell, auto const& format) {
        std::ostringstream os;
        format(os);
        os << cell;
        return Cell(Str(os.str())).compare(cell, false);
    };
    EXPECT_EQ(printed(tiny), "1.05457e-34");
    EXPECT_FALSE(readsBack(tiny, [](std::ostream& os) { os << std::setprecision(10); }));
    EXPECT_TRUE(readsBack(tiny, [](std::ostream& os) { os << std::setprecision(17); }));
    EXPECT_TRUE(readsBack(half, [](std::ostream& os) { os << std::fixed << std::showpos; }));
    EXPECT_FALSE(readsBack(half, [](std::ostream& os) { os << std::hex; }));
    EXPECT_FALSE(readsBack(Cell("word"), [](std::ostream& os) { os << std::setw(9); }));
    auto const german = [](std::ostream& os) {
        os.imbue(std::locale(std::locale::classic(), new German));
    };
    EXPECT_FALSE(readsBack(half, german));
    EXPECT_FALSE(readsBack(Cell(1234), german));
    EXPECT_EQ(Cell(Str(printed(Cell(AnalyticDouble())))).isA(), Cell::StringCell);
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
