#include "support.h"

#include <cmath>

namespace QX {
namespace {

using namespace std::string_literals;

struct NumberRule {
    std::string text;
    double value;
};

TEST(CellFromText, ReadsNumbersInThreeForms) {
    NumberRule const rows[] = {
        {"12.5", 12.5},
        {" 12.5", 12.5},
        {"+.5e1", 5},
        {"1e-400", 0},
        {"## 0 1076428800", 12.5},
        {"##\0000 1076428800"s, 12.5},
        {"##00 1076428800", 12.5},
        {"## 0 -1075838976", -0.5},
        {"## -1717986918 1069128089", 0.1},
        {"## 0 2146435072", INFINITY},
        {"[Numeric] 1 4", 0.25},
        {"[Numeric]:\t-1\n+4", -0.25},
    };
    for (NumberRule const& row : rows) {
        SCOPED_TRACE(row.text);
        AnalyticDouble number;
        EXPECT_TRUE(Cell(Str(row.text)).get(number).ok());
        EXPECT_TRUE(number.isValid());
        EXPECT_EQ(number.get(), row.value);
    }
}

TEST(CellFromText, KeepsWhatIsNothingElse) {
    std::istringstream texts(
        "12.5 |1e400|1,5|0x10|inf|-nan|1970-01-01|##0 1076428800|## 0 1076428800 |"
        "## 0 1076428800 1|## 0 4294967295| ## 0 1076428800|##|## |[Numeric] 1 0|"
        "[Numeric] 1|[Numeric]|[Numeric|[numeric] 1 4|#Err:|#Err:x |#Err:\tx|# Err: x|"
        " #Err: x|Err: x|#Error: x|#Warning: x|#|[empty]|[Empty] |[Undefined]||"
        "12.5\0|[Empty]\0"s);
    for (std::string kept; std::getline(texts, kept, '|');) {
        SCOPED_TRACE(kept);
        Cell const cell{Str(kept)};
        EXPECT_EQ(cell.isA(), Cell::StringCell);
        EXPECT_EQ(text(cell), kept);
        EXPECT_EQ(cell.empty(), kept.empty());
    }
}

TEST(CellFromText, ReadsErrorsAndNothing) {
    for (char const* const error : {"#Err: ", "#eRR: anything", "#Critical: x", "#CRITICAL:  "}) {
        SCOPED_TRACE(error);
        Status status;
        EXPECT_TRUE(Cell(error).get(status).ok());
        EXPECT_EQ(outcome(status), error) << "the message is the whole text";
        EXPECT_EQ(text(Cell(error)), error);
    }
    EXPECT_EQ(Cell("[Empty]").isA(), Cell::EmptyCell);
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
