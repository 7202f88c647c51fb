#include "support.h"

#include <cmath>

namespace QX {
namespace {

struct TextRule {
    std::string text;
    Cell::CellType kind;
    double value = 0;
};

using namespace std::string_literals;

TextRule const textRules[] = {{"12.5", Cell::NumericCell, 12.5},
                              {" 12.5", Cell::NumericCell, 12.5},
                              {"12.5 ", Cell::StringCell},
                              {"12.5\0"s, Cell::StringCell},
                              {"+.5e1", Cell::NumericCell, 5},
                              {"1e400", Cell::StringCell},
                              {"1e-400", Cell::NumericCell, 0},
                              {"1,5", Cell::StringCell},
                              {"0x10", Cell::StringCell},
                              {"inf", Cell::StringCell},
                              {"-nan", Cell::StringCell},
                              {"1970-01-01", Cell::StringCell},
                              {"## 0 1076428800", Cell::NumericCell, 12.5},
                              {"##\0000 1076428800"s, Cell::NumericCell, 12.5},
                              {"##00 1076428800", Cell::NumericCell, 12.5},
                              {"##0 1076428800", Cell::StringCell},
                              {"## 0 -1075838976", Cell::NumericCell, -0.5},
                              {"## -1717986918 1069128089", Cell::NumericCell, 0.1},
                              {"## 0 2146435072", Cell::NumericCell, INFINITY},
                              {"## 0 1076428800 ", Cell::StringCell},
                              {"## 0 1076428800 1", Cell::StringCell},
                              {"## 0 4294967295", Cell::StringCell},
                              {" ## 0 1076428800", Cell::StringCell},
                              {"##", Cell::StringCell},
                              {"## ", Cell::StringCell},
                              {"[Numeric] 1 4", Cell::NumericCell, 0.25},
                              {"[Numeric]:\t-1\n+4", Cell::NumericCell, -0.25},
                              {"[Numeric] 1 0", Cell::StringCell},
                              {"[Numeric] 1", Cell::StringCell},
                              {"[Numeric]", Cell::StringCell},
                              {"[Numeric", Cell::StringCell},
                              {"[numeric] 1 4", Cell::StringCell},
                              {"#Err: ", Cell::ErrorCell},
                              {"#eRR: anything at all", Cell::ErrorCell},
                              {"#Critical: x", Cell::ErrorCell},
                              {"#CRITICAL:  ", Cell::ErrorCell},
                              {"#Err:", Cell::StringCell},
                              {"#Err:x ", Cell::StringCell},
                              {"#Err:\tx", Cell::StringCell},
                              {"# Err: x", Cell::StringCell},
                              {" #Err: x", Cell::StringCell},
                              {"Err: x", Cell::StringCell},
                              {"#Error: x", Cell::StringCell},
                              {"#Warning: x", Cell::StringCell},
                              {"#", Cell::StringCell},
                              {"[Empty]", Cell::EmptyCell},
                              {"[empty]", Cell::StringCell},
                              {"[Empty] ", Cell::StringCell},
                              {"[Empty]\0"s, Cell::StringCell},
                              {"[Undefined]", Cell::StringCell},
                              {"", Cell::StringCell}};

TEST(CellFromText, FollowsTheRule) {
    for (TextRule const& row : textRules) {
        SCOPED_TRACE(row.text);
        Cell const cell{Str(row.text)};
        ASSERT_EQ(cell.isA(), row.kind);
        if (row.kind == Cell::NumericCell) {
            AnalyticDouble number;
            EXPECT_TRUE(cell.get(number).ok());
            EXPECT_TRUE(number.isValid());
            EXPECT_EQ(number.get(), row.value);
        } else if (row.kind == Cell::StringCell) {
            EXPECT_EQ(text(cell), row.text);
            EXPECT_EQ(cell.empty(), row.text.empty());
        } else if (row.kind == Cell::ErrorCell) {
            Status status;
            EXPECT_TRUE(cell.get(status).ok());
            EXPECT_EQ(outcome(status), row.text) << "the message is the whole text";
            EXPECT_EQ(text(cell), row.text);
        }
    }
}

TEST(Cell, KindAndEmptinessFollowTheConstructor) {
    EXPECT_EQ(Cell().isA(), Cell::EmptyCell);
    EXPECT_TRUE(Cell().empty());
    EXPECT_EQ(Cell(Ptr<CellImplementation>()).isA(), Cell::EmptyCell);
    EXPECT_EQ(Cell(0).isA(), Cell::NumericCell);
    EXPECT_FALSE(Cell(NAN).empty());
    EXPECT_FALSE(Cell(INFINITY).empty());
    EXPECT_TRUE(undefined().empty());
    EXPECT_EQ(Cell("x").isA(), Cell::StringCell);
    EXPECT_EQ(Cell(Status()).isA(), Cell::ErrorCell);
    EXPECT_FALSE(Cell(Status()).empty());
    EXPECT_EQ(Cell(Ptr<Table>()).isA(), Cell::TableCell);
    EXPECT_FALSE(Cell(Ptr<Table>()).empty());
}

TEST(Cell, NullTableHandlesGiveATableOfTheirOwn) {
    Ptr<Table const> const bodiless(new Table(Ptr<TableImplementation>()));
    for (Cell const& cell : {Cell(Ptr<Table>()), Cell(Ptr<Table const>()), Cell(bodiless)}) {
        EXPECT_EQ(printed(cell), "Table - Null Table\n");
    }
    EXPECT_NE(nested(Cell(Ptr<Table>())).get(), nested(Cell(Ptr<Table>())).get());
}

TEST(Cell, SharesATableAndCopiesAConstOne) {
    Ptr<Table> const source = table("t", {{"A", 1}});
    source->getAttributes()->at(0, 0, Cell("attribute"));
    Cell const shares(source);
    Cell const copies{Ptr<Table const>(source)};
    source->at("A", 1, Cell(2));
    EXPECT_EQ(text(nested(shares)->at("A", 1)), "2");
    EXPECT_EQ(nested(shares).get(), source.get());
    EXPECT_EQ(text(nested(copies)->at("A", 1)), "1");
    EXPECT_EQ(text(nested(copies)->getAttributes()->at(0, 0)), "attribute");
    nested(copies)->at("A", 1, Cell(3));
    Ptr<Table const> seen;
    EXPECT_TRUE(copies.get(seen).ok());
    EXPECT_EQ(text(seen->at("A", 1)), "3");
    EXPECT_EQ(text(source->at("A", 1)), "2");
}

TEST(Cell, CopiesShareAndMovesTakeOver) {
    Ptr<Table> const body = table("t");
    Cell a(body);
    std::uint32_t const one = body.useCount();
    Cell b(a);
    Cell c;
    EXPECT_EQ(&(c = b), &c);
    Cell const& self = c;
    c = self;
    EXPECT_EQ(body.useCount(), one) << "cells share a body instead of copying it";
    Cell const moved(std::move(a));
    EXPECT_EQ(a.isA(), Cell::EmptyCell);
    EXPECT_EQ(nested(moved).get(), body.get());
    b = std::move(c);
    EXPECT_EQ(c.isA(), Cell::EmptyCell);
    EXPECT_EQ(nested(b).get(), body.get());
}

} // namespace
} // namespace QX
