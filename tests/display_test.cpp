#include "support.h"

#include <iomanip>

namespace QX {
namespace {

TEST(TableDisplay, ShowsOneLinePerIndex) {
    EXPECT_EQ(shown(Table("prices")), "Table - prices\n");
    EXPECT_EQ(shown(Table("prices"), 0), "Table - 0\n");
    EXPECT_EQ(shown(Table("prices"), 7), "Table - 7\n");
    EXPECT_EQ(shown(Table("prices"), -2), "Table - -2\n");
    EXPECT_EQ(shown(*table("t", {{}, {"only a name"}, {}, {Cell(), ""}, {12.5, undefined(), "a  b"}})),
              "Table - t\n"
              "Index 0 <>\n"
              "      1 <only a name> \n"
              "      2 <>\n"
              "      3 <[Empty]>  \n"
              "      4 <## 0 1076428800> [Undefined] a  b \n");
    EXPECT_EQ(shown(Table(Ptr<TableImplementation>())), "Null table\n");
    EXPECT_EQ(shown(Table(Ptr<TableImplementation>()), 3), "Null table\n");
}

TEST(TableDisplay, NumbersChildrenFromTheirParent) {
    Ptr<Table> const c = table("C", {{"deep"}});
    Ptr<Table> const a = table("A", {{"holds", c}});
    Ptr<Table> const t = table("top", {{a, 1}, {}, {"x", 2, table("B")}});
    EXPECT_EQ(shown(*t), "Table - 1\n"
                         "Index 0 <deep> \n"
                         "Table - 0\n"
                         "Index 0 <holds> `Table 1' \n"
                         "Table - 1\n"
                         "Table - top\n"
                         "Index 0 <`Table 0'> 1 \n"
                         "      1 <>\n"
                         "      2 <x> 2 `Table 1' \n");
    EXPECT_EQ(shown(*table("t", {{"x"}, {1, 2, c, c}}), 5), "Table - 6\nIndex 0 <deep> \n"
                                                            "Table - 7\nIndex 0 <deep> \n"
                                                            "Table - 5\nIndex 0 <x> \n"
                                                            "      1 <1> 2 `Table 6' `Table 7' \n");
    EXPECT_EQ(shown(*table("t", {{Ptr<Table>(new Table(Ptr<TableImplementation>()))}})),
              "Null table\nTable - t\nIndex 0 <`Table 0'> \n");
}

TEST(TableDisplay, FollowsTheStreamsFormatting) {
    Ptr<Table> t = table("t", {{1234567, 12.5, "a"}});
    t->at(10, 0, Cell(table("n")));
    std::ostringstream os;
    os << std::hex << std::showbase << std::setprecision(3);
    EXPECT_EQ(&t->display(os, 15), &os);
    EXPECT_EQ(os.str(), "Table - 0x10\nTable - 0xf\nIndex 0 <1.23e+06> ## 0 0x40290000 a \n"
                        "      0x1 <>\n      0x2 <>\n      0x3 <>\n      0x4 <>\n      0x5 <>\n"
                        "      0x6 <>\n      0x7 <>\n      0x8 <>\n      0x9 <>\n"
                        "      0xa <`Table 0x10'> \n");
}

struct Loud : Table {
    using Table::Table;
    std::ostream& display(std::ostream& os, int number) const override {
        return Table::display(os << "loud " << number << ": ", number);
    }
};

TEST(TableDisplay, IsVirtualForNestedTables) {
    Ptr<Table> const loud(new Loud("l"));
    EXPECT_EQ(shown(*table("t", {{loud}})), "loud 0: Table - 0\nTable - t\nIndex 0 <`Table 0'> \n");
    EXPECT_EQ(printed(Cell(loud)), "loud -1: Table - l\n");
}

/// Counts the flushes that reach it.
struct FlushCounter : std::stringbuf {
    int sync() override {
        ++flushes;
        return 0;
    }
    int flushes = 0;
};

TEST(TableDisplay, FlushesEachLine) {
    FlushCounter buffer;
    std::ostream os(&buffer);
    table("t", {{"A"}, {"B"}})->display(os);
    EXPECT_EQ(buffer.flushes, 3);
}

} // namespace
} // namespace QX
