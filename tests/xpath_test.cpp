#include "brief.h"

namespace QX {
namespace {

char const* const fruit = "price 10 20 30 | stock {red n 1 2 | m 3 } 7 {green n 4 | m 5 6 7 }";

struct PathCase {
    char const* path;
    char const* result; // of XPath on `fruit`; null for the base table
    char const* value;  // of atXPath without creating
};

PathCase const pathCases[] = {
    {"price", "price 10 20 30", "10"},
    {"/price", "price 10 20 30", "10"},
    {"//price//", "price 10 20 30", "10"},
    {"price[2]", "price 20", "20"},
    {"price[ 2]", "price 20", "20"},
    {"price[2", "price 20", "20"},
    {"price[2]x", "price 20", "20"},
    {"price[0]", "price price", "price"},
    {"price[9]", "price -", "-"},
    {"price[18446744073709551614]", "price -", "-"},
    {"price[-1]", "price 10 20 30", "10"}, // reads as no item number
    {"none", "none - - -", "-"},
    {"none[1]", "none -", "-"},
    {"stock/n", "n 1 2 4 - -", "1"}, // as many as each table's longest index has
    {"stock/m[2]", "m - 6", "-"},
    {"stock[3]/m", "m 5 6 7", "5"},
    {"stock[2]/m", "m", "-"},
    {"price/n", "n", "-"},
    {"price/n/m", "m", "-"},
    {"stock//n[1]", "n 1 4", "1"},
    {"stock/[1]/n", "stock {red n 1 2 | m 3 } 7 {green n 4 | m 5 6 7 }", "{red n 1 2 | m 3 }"}, // stops
    {"stock[1]/n[x]/m", "stock {red n 1 2 | m 3 }", "{red n 1 2 | m 3 }"},
    {"stock[1]/n[99999999999999999999]", "stock {red n 1 2 | m 3 }", "{red n 1 2 | m 3 }"},
    {"", nullptr, nullptr},
    {"///", nullptr, nullptr},
    {"[1]", nullptr, nullptr},
    {"price[]", nullptr, nullptr},
    {"price[x]/n", nullptr, nullptr},
};

TEST(TableXPath, ReachesValues) {
    Ptr<Table> const t = brief(fruit);
    for (PathCase const& row : pathCases) {
        SCOPED_TRACE(row.path);
        Ptr<Table> result;
        EXPECT_EQ(outcome(t->XPath(row.path, result)), "Ok");
        EXPECT_EQ(named(result), row.result == nullptr ? "Xpath: base {t " + std::string(fruit) + " }"
                                                       : std::string("results: ") + row.result);
        EXPECT_EQ(brief(t->atXPath(row.path, Cell("unused"))),
                  row.value == nullptr ? "{t " + std::string(fruit) + " }" : row.value);
    }
    EXPECT_EQ(brief(*t), fruit) << "reading changes nothing";
}

TEST(TableXPath, SharesWhatItReaches) {
    Ptr<Table> const t = brief(fruit);
    Ptr<Table> result;
    t->XPath("stock[1]", result);
    EXPECT_EQ(nested(result->get(0, 1)).get(), nested(t->get(1, 1)).get());
    t->XPath("", result);
    nested(result->get("base", 1))->at("price", 1) = Cell(11);
    EXPECT_EQ(brief(t->get(0, 1)), "11");
    nested(t->atXPath("", Cell()))->at("price", 2) = Cell(21);
    EXPECT_EQ(brief(t->get(0, 2)), "21");
    result = brief(fruit);
    result->XPath("price", result);
    EXPECT_EQ(brief(*result), "price 10 20 30") << "from the last handle to the table";
}

TEST(TableXPath, TakesAnySeparator) {
    Ptr<Table> result;
    brief(fruit)->XPath("..stock.n[1]", result, '.');
    EXPECT_EQ(brief(*result), "n 1 4");
    EXPECT_EQ(brief(brief(fruit)->atXPath("stock.m", Cell(), '.')), "3");
    EXPECT_EQ(brief(brief(fruit)->atXPath("stock.m", false, '.')), "3");
}

struct WriteCase {
    char const* table;
    char const* path;
    bool create;
    char const* result; // with 5 written at the path; null when the path is refused
};

WriteCase const writeCases[] = {
    {"A 1 2", "A", false, "A 5 2"},
    {"A 1 2", "A[2]", false, "A 1 5"},
    {"A 1 2", "A[0]", false, "5 1 2"},
    {"A 1 2", "A[3]", false, nullptr},
    {"A 1 2", "A[3]", true, "A 1 2 5"},
    {"A 1 2", "B", false, "A 1 2 | B 5"}, // added all the same
    {"A 1 | B 1 2", "A[2]", false, "A 1 5 | B 1 2"},
    {"A", "A", false, nullptr},
    {"", "A", false, nullptr},
    {"", "A", true, "A 5"},
    {"", "/A[2]", true, "A - 5"},
    {"", "A/B", true, "A {A B 5 }"},
    {"", "A[2]/B", true, nullptr}, // the new table is in item 1
    {"A 1", "A/B", true, nullptr},
    {"A 1", "A/B", false, nullptr},
    {"A {n }", "A/B", false, nullptr},
    {"A {n }", "A/B", true, "A {n B 5 }"},
    {"A {n X 1 } {m X 1 }", "A/X", false, "A {n X 5 } {m X 1 }"},
    {"A {n X 1 } {m X 1 }", "A/X/Y", true, nullptr},
    {"A 1 {m X 1 }", "A/X", true, nullptr}, // only the first counts
    {"A {n X 1 } {m }", "A/B/C", true, "A {n X 1 | B {B C 5 } } {m B {B } }"},
    {"A 1", "A[x]", true, nullptr},
    {"A 1", "A[x]/A", true, "A 5"}, // the walk stops at the first step
    {"A 1", "", true, "A 1 | \"\" 5"},
    {"A {n X 1 }", "A/", true, "A {n X 1 | \"\" 5 }"},
};

TEST(TableAtXPath, WritesThroughThePath) {
    for (WriteCase const& row : writeCases) {
        SCOPED_TRACE(row.table + std::string(" at ") + row.path + (row.create ? " create" : ""));
        Ptr<Table> const t = brief(row.table);
        std::string const failure = raised([&] { t->atXPath(row.path, row.create) = Cell(5); });
        if (row.result == nullptr) {
            EXPECT_EQ(failure, "No value at specified xpath '" + std::string(row.path) + "'");
        } else {
            EXPECT_EQ(failure, "");
            EXPECT_EQ(brief(*t), row.result);
        }
    }
}

TEST(TableAtXPath, KeepsTheTableWhenThereIsNoMemory) {
    for (char const* path :
         {"A[9223372036854775807]", "B[18446744073709551614]", "A[1]/X[4611686018427387904]"}) {
        SCOPED_TRACE(path);
        Ptr<Table> const t = brief("A {n X 1 }");
        EXPECT_THROW(t->atXPath(path, true), std::exception);
        EXPECT_EQ(brief(*t), "A {n X 1 }");
        EXPECT_EQ(brief(t->atXPath(path, Cell())), "-");
    }
}

TEST(TableAtXPath, MakesADataBody) {
    Table t{Ptr<TableImplementation>()};
    EXPECT_NE(raised([&] { t.atXPath("A/B", false); }), "");
    EXPECT_EQ(shown(t), "Null table\n");
    t.atXPath("A/B", true) = Cell(5);
    EXPECT_EQ(brief(t), "A {A B 5 }");
}

TEST(TableAttributes, AreKeptByPath) {
    Ptr<Table> const t = brief("A 1");
    Cell value("untouched");
    EXPECT_EQ(outcome(t->getAttribute("colour", value)), "Ok");
    EXPECT_EQ(brief(value), "-");
    EXPECT_EQ(outcome(t->setAttribute("colour", Cell("red"))), "Ok");
    EXPECT_EQ(outcome(t->setAttribute("/style/width[2]", Cell(7))), "Ok");
    EXPECT_EQ(brief(*t->getAttributes()), "colour red | style {style width - 7 }");
    EXPECT_EQ(outcome(t->getAttribute("style/width[2]", value)), "Ok");
    EXPECT_EQ(brief(value), "7");
    EXPECT_EQ(outcome(t->getAttribute("style[x]", value)), "Ok");
    EXPECT_EQ(brief(value), "{ colour red | style {style width - 7 } }") << "the attributes themselves";
    EXPECT_EQ(raised([&] { (void)t->setAttribute("colour/red", Cell(1)); }),
              "No value at specified xpath 'colour/red'");
    t->setAttribute("copy", t->getAttributes()->get("colour", 1));
    EXPECT_EQ(brief(t->getAttributes()->get("copy", 1)), "red");
    EXPECT_EQ(brief(*t), "A 1");
}

TEST(TableAttributes, WithoutABodyGiveNothing) {
    Ptr<Table> const t = brief("A 1");
    t->setAttributes(Ptr<Table>(new Table(Ptr<TableImplementation>())));
    Cell value("untouched");
    EXPECT_EQ(outcome(t->getAttribute("x", value)), "Ok");
    EXPECT_EQ(brief(value), "untouched");
    EXPECT_EQ(outcome(t->setAttribute("x", Cell(1))), "Ok");
    EXPECT_EQ(named(t->getAttributes()), "Attributes: x 1");
}

} // namespace
} // namespace QX
