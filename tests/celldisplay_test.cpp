#include "support.h"

#include <cmath>
#include <functional>
#include <iomanip>

namespace QX {
namespace {

struct Display {
    Cell cell;
    char const* text;
};

TEST(CellDisplay, OfEveryKind) {
    Display const rows[] = {
        {Cell(), "[Empty]"},
        {Cell(""), ""},
        {Cell(" a b "), " a b "},
        {Cell(3.0), "3"},
        {Cell(-0.0), "-0"},
        {Cell(1234567), "1.23457e+06"},
        {Cell(2147483647), "2.14748e+09"},
        {Cell(12.5), "## 0 1076428800"},
        {Cell(-0.5), "## 0 -1075838976"},
        {Cell(0.1), "## -1717986918 1069128089"},
        {Cell(3e9), "## -1073741824 1105615371"},
        {Cell(std::nextafter(2.0, 3.0)), "2"},
        {Cell(INFINITY), "inf"},
        {undefined(2.5), "[Undefined]"},
        {undefined(3), "[Undefined]"},
        {Cell(Status("x", Status::Error, -1)), ""},
        {Cell("#Err: x"), ""},
        {Cell(table("t", {{"A", 1}})), "Table - t\nIndex 0 <A> 1 \n"},
    };
    for (Display const& row : rows) {
        EXPECT_EQ(printed(row.cell), row.text);
        std::ostringstream os;
        EXPECT_EQ(&row.cell.display(os), &os);
    }
}

TEST(CellDisplay, PrintedNumbersReadBack) {
    for (double const value : {0.1, -2.0 / 3, 1e300, 5e-324 + 1, 3e9, 123456.0, -99999.5, 0.0}) {
        Cell const read{Str(printed(Cell(value)))};
        double back = -1;
        EXPECT_TRUE(read.get(back).ok());
        EXPECT_EQ(back, value);
    }
    EXPECT_EQ(Cell(Str(printed(Cell()))).isA(), Cell::EmptyCell);
    EXPECT_TRUE(Cell(Str(printed(Cell(NAN)))).compare(Cell(NAN), false));
}

struct Formatted {
    std::function<void(std::ostream&)> format;
    Cell cell;
    char const* text;
};

TEST(CellDisplay, FollowsTheStreamsFormatting) {
    auto const hex = [](std::ostream& os) { os << std::hex << std::showbase; };
    auto const wide = [](std::ostream& os) { os << std::setw(9) << std::setfill('.'); };
    auto const left = [](std::ostream& os) { os << std::left << std::setw(9) << std::setfill('.'); };
    auto const fixed = [](std::ostream& os) { os << std::fixed << std::setprecision(2); };
    auto const plus = [](std::ostream& os) { os << std::showpos; };
    auto const precise = [](std::ostream& os) { os << std::setprecision(12); };
    auto const logical = [](std::ostream& os) { os << std::boolalpha; };
    Formatted const rows[] = {
        {hex, Cell(12.5), "## 0 0x40290000"},
        {hex, Cell(12), "12"},
        {plus, Cell(12.5), "## +0 +1076428800"},
        {plus, Cell(12), "+12"},
        {wide, Cell(12), ".......12"},
        {left, Cell(12), "12......."},
        {wide, Cell(), "..[Empty]"},
        {wide, Cell("abc"), "......abc"},
        {fixed, Cell(12), "12.00"},
        {fixed, Cell(12.5), "## 0 1076428800"},
        {precise, Cell(1234567), "1234567"},
        {logical, Cell(1), "1"},
    };
    for (Formatted const& row : rows) {
        std::string const text = written([&](std::ostream& os) {
            row.format(os);
            os << row.cell;
        });
        EXPECT_EQ(text, row.text);
    }
    AnalyticDouble number(5, 2);
    EXPECT_EQ(written([&](std::ostream& os) { os << std::fixed << std::setprecision(3) << number; }),
              "2.500");
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
