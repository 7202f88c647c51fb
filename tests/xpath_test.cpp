#include "brief.h"

namespace QX {
namespace {

char const* const fruit = "price 10 20 30 | stock {red n 1 2 | m 3 } 7 {green n 4 | m 5 6 7 }";

/// Rows of "path ; result of XPath on `fruit` ; what atXPath reads there"; "base" is the table itself.
TEST(TableXPath, ReachesValues) {
    Ptr<Table> const t = brief(fruit);
    std::string const base = "{t " + std::string(fruit) + " }";
    for (Row const& row : rows(R"(
        price ; price 10 20 30 ; 10
        //price// ; price 10 20 30 ; 10
        price[2] ; price 20 ; 20
        price[0] ; price price ; price
        price[9] ; price - ; -
        price[18446744073709551614] ; price - ; -
        price[-1] ; price 10 20 30 ; 10   <- reads as no item number
        none ; none - - - ; -
        stock/n ; n 1 2 4 - - ; 1   <- as many as each table's longest index has
        stock/m[2] ; m - 6 ; -
        stock[3]/m ; m 5 6 7 ; 5
        stock[2]/m ; m ; -
        price/n ; n ; -
        stock//n[1] ; n 1 4 ; 1
        stock/[1]/n ; stock {red n 1 2 | m 3 } 7 {green n 4 | m 5 6 7 } ; {red n 1 2 | m 3 }   <- stops
        stock[1]/n[x]/m ; stock {red n 1 2 | m 3 } ; {red n 1 2 | m 3 }
        stock[1]/n[99999999999999999999] ; stock {red n 1 2 | m 3 } ; {red n 1 2 | m 3 }
        ; base ; base
        /// ; base ; base
        price[x]/n ; base ; base
    )")) {
        SCOPED_TRACE(row.line);
        Ptr<Table> result;
        EXPECT_EQ(outcome(t->XPath(Str(row[0]), result)), "Ok");
        EXPECT_EQ(named(result), row[1] == "base" ? "Xpath: base " + base : "results: " + row[1]);
        EXPECT_EQ(brief(t->atXPath(Str(row[0]), Cell("unused"))), row[2] == "base" ? base : row[2]);
    }
    EXPECT_EQ(brief(*t), fruit) << "reading changes nothing";
}

TEST(TableXPath, SharesWhatItReaches) {
    Ptr<Table> const t = brief(fruit);
    Ptr<Table> result;
    (void)t->XPath("stock[1]", result);
    EXPECT_EQ(nested(result->get(0, 1)).get(), nested(t->get(1, 1)).get());
    (void)t->XPath("", result);
    nested(result->get("base", 1))->at("price", 1) = Cell(11);
    EXPECT_EQ(brief(t->get(0, 1)), "11");
    nested(t->atXPath("", Cell()))->at("price", 2) = Cell(21);
    EXPECT_EQ(brief(t->get(0, 2)), "21");
    result = brief(fruit);
    (void)result->XPath("price", result);
    EXPECT_EQ(brief(*result), "price 10 20 30") << "from the last handle to the table";
}

TEST(TableXPath, TakesAnySeparator) {
    Ptr<Table> result;
    (void)brief(fruit)->XPath("..stock.n[1]", result, '.');
    EXPECT_EQ(brief(*result), "n 1 4");
    EXPECT_EQ(brief(brief(fruit)->atXPath("stock.m", Cell(), '.')), "3");
    EXPECT_EQ(brief(brief(fruit)->atXPath("stock.m", false, '.')), "3");
}

/// Rows of "table ; path ; the table with 5 written there", or "refused" and the table if it has
/// changed.
void expectWritten(bool create, char const* cases) {
    for (Row const& row : rows(cases)) {
        SCOPED_TRACE(row.line);
        Ptr<Table> const t = brief(row[0]);
        std::string const failure = raised([&] { t->atXPath(Str(row[1]), create) = Cell(5); });
        bool const refused = row[2] == "refused";
        EXPECT_EQ(failure, refused ? "No value at specified xpath '" + row[1] + "'" : "");
        EXPECT_EQ(brief(*t), !refused ? row[2] : row[3].empty() ? row[0] : row[3]);
    }
}

TEST(TableAtXPath, WritesThroughThePath) {
    expectWritten(false, R"(
        A 1 2 ; A ; A 5 2
        A 1 2 ; A[2] ; A 1 5
        A 1 2 ; A[0] ; 5 1 2
        A 1 2 ; A[3] ; refused
        A 1 2 ; B ; A 1 2 | B 5   <- added all the same
        A 1 | B 1 2 ; A[2] ; A 1 5 | B 1 2
        A ; A ; refused
        ; A ; refused
        A 1 ; A/B ; refused
        A {n } ; A/B ; refused
        A {n X 1 } {m X 1 } ; A/X ; A {n X 5 } {m X 1 }
    )");
    expectWritten(true, R"(
        A 1 2 ; A[3] ; A 1 2 5
        ; A ; A 5
        ; /A[2] ; A - 5
        ; A/B ; A {A B 5 }
        ; A[2]/B ; refused ; A {A } -   <- the new table is in item 1
        A 1 ; A/B ; refused
        A {n } ; A/B ; A {n B 5 }
        A {n X 1 } {m X 1 } ; A/X/Y ; refused
        A 1 {m X 1 } ; A/X ; refused   <- only the first counts
        A {n X 1 } {m } ; A/B/C ; A {n X 1 | B {B C 5 } } {m B {B } }
        A 1 ; A[x] ; refused
        A 1 ; A[x]/A ; A 5   <- the walk stops at the first step
        A 1 ;  ; A 1 | "" 5
        A {n X 1 } ; A/ ; A {n X 1 | "" 5 }
    )");
}

TEST(TableAtXPath, MakesADataBody) {
    Table t{Ptr<TableImplementation>()};
    EXPECT_NE(raised([&] { t.atXPath("A/B", false); }), "");
    EXPECT_EQ(shown(t), "Null table\n");
    t.atXPath("A/B", true) = Cell(5);
    EXPECT_EQ(brief(t), "A {A B 5 }");
    Ptr<Table> const inner(new Table(Ptr<TableImplementation>()));
    t.at("C", 1, Cell(inner));
    EXPECT_EQ(brief(t.atXPath("C/B", Cell())), "-");
    EXPECT_NE(raised([&] { t.atXPath("C/B", false); }), "");
    EXPECT_NE(raised([&] { t.atXPath("C/B[x]", true); }), "");
    EXPECT_EQ(shown(*inner), "Null table\n");
    t.atXPath("C/B", true) = Cell(5);
    EXPECT_EQ(brief(*inner), "B 5");
}

TEST(TableAtXPath, KeepsTheStepsBeforeOneThatFails) {
    Table t{Ptr<TableImplementation>()};
    EXPECT_NE(raised([&] { t.atXPath("A[x]", true); }), "");
    EXPECT_EQ(shown(t), "Null table\n");
    EXPECT_NE(raised([&] { t.atXPath("A/B[x]", true); }), "");
    EXPECT_EQ(brief(t), "A {A }");
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
    (void)t->setAttribute("copy", t->getAttributes()->get("colour", 1));
    EXPECT_EQ(brief(t->getAttributes()->get("copy", 1)), "red");
    EXPECT_EQ(brief(*t), "A 1");
}

TEST(TableAttributes, WithoutABodyGiveNothing) {
    Ptr<Table> const t = brief("A 1");
    t->setAttributes(Ptr<Table>(new Table(Ptr<TableImplementation>())));
    Cell value("untouched");
    EXPECT_EQ(outcome(t->getAttribute("x", value)), "Ok");
    EXPECT_EQ(brief(value), "untouched");
    t->getAttributes()->at("lost", 1, Cell(1));
    EXPECT_EQ(named(t->clone()->getAttributes()), ": ");
    Table failed(*t);
    EXPECT_NE(raised([&] { (void)failed.setAttribute("x[y]", Cell(1)); }), "");
    EXPECT_EQ(named(failed.getAttributes()), "Attributes: ");
    EXPECT_EQ(outcome(t->setAttribute("x", Cell(1))), "Ok");
    EXPECT_EQ(named(t->getAttributes()), "Attributes: x 1");
}

TEST(TableAttributes, MayHoldTheLastHandleToTheirTable) {
    for (char const* const path : {"me", "a/b/me[3]"}) {
        Ptr<Table> owner = brief("A 1");
        (void)owner->setAttribute(path, Cell(owner));
        Table& table = *owner;
        owner = nullptr;
        (void)table.setAttribute(path, Cell()); // ends the table: nothing may be touched afterwards
    }
}

} // namespace
} // namespace QX
