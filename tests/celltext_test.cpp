#include "brief.h"

namespace QX {
namespace {

using namespace std::string_literals;

TEST(CellFromText, ReadsNumbersInThreeForms) {
    std::pair<std::string, double> const numbers[] = {
        {"12.5", 12.5},
        {" 12.5", 12.5},
        {"+.5e1", 5},
        {"1e-400", 0},
        {"##\0000 1076428800"s, 12.5}, // any one character behind the mark
        {"## 0 -1075838976", -0.5},
        {"## -1717986918 1069128089", 0.1},
        {"## 0 2146435072", INFINITY},
        {"[Numeric] 1 4", 0.25},
        {"[Numeric]:\t-1\n+4", -0.25},
    };
    for (auto const& [form, value] : numbers) {
        AnalyticDouble read;
        EXPECT_TRUE(Cell(Str(form)).get(read).ok()) << form;
        EXPECT_TRUE(read.isValid()) << form;
        EXPECT_EQ(read.get(), value) << form;
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
        Cell const cell{Str(kept)};
        EXPECT_EQ(cell.isA(), Cell::StringCell) << kept;
        EXPECT_EQ(text(cell), kept);
        EXPECT_EQ(cell.empty(), kept.empty()) << kept;
    }
}

TEST(CellFromText, KeepsTextsOfAnyLength) {
    for (std::size_t size = 0; size < 40; ++size) {
        std::string const kept(size, '\0');
        Cell const cell{Str(kept)};
        Cell moved(cell);
        moved = Cell(std::move(moved));
        EXPECT_EQ(text(moved), kept);
        EXPECT_TRUE(moved.compare(Cell(Str(kept)), false));
        EXPECT_FALSE(moved.compare(Cell(Str(kept + '\0')), false)) << size;
        EXPECT_TRUE(moved < Cell(Str(kept + '\0'))) << size;
        EXPECT_TRUE(Cell(Str(kept + "\x7f")) < Cell(Str(kept + "\x80"))) << size;
        EXPECT_TRUE(Cell(Str(kept + 'A')).compare(Cell(Str(kept + 'a')), true)) << size;
    }
}

TEST(CellFromText, ReadsErrorsAndNothing) {
    for (char const* const error : {"#Err: ", "#eRR: anything", "#Critical: x", "#CRITICAL:  "}) {
        Status status;
        EXPECT_TRUE(Cell(error).get(status).ok());
        EXPECT_EQ(outcome(status), error) << "the message is the whole text";
        EXPECT_EQ(text(Cell(error)), error);
    }
    EXPECT_EQ(Cell("[Empty]").isA(), Cell::EmptyCell);
}

TEST(Cell, KindAndEmptinessFollowTheConstructor) {
    EXPECT_EQ(Cell(Ptr<CellImplementation>()).isA(), Cell::EmptyCell);
    EXPECT_EQ(Cell(Status()).isA(), Cell::ErrorCell);
    EXPECT_EQ(Cell(Ptr<Table>()).isA(), Cell::TableCell);
    for (Cell const& cell : {Cell(), Cell(""), undefined(), undefined(5)}) {
        EXPECT_TRUE(cell.empty()) << brief(cell);
    }
    for (Cell const& cell : {Cell(0), Cell(NAN), Cell("x"), Cell(Status()), Cell(Ptr<Table>())}) {
        EXPECT_FALSE(cell.empty()) << text(cell);
    }
}

TEST(Cell, IsMadeOfIntegersButOfNoCharacterOrKind) {
    static_assert(!std::is_constructible_v<Cell, char> && !std::is_convertible_v<wchar_t, Cell>);
    static_assert(!std::is_constructible_v<Cell, Cell::CellType>);
    static_assert(std::is_convertible_v<unsigned char, Cell> && std::is_convertible_v<long, Cell>);
    bool truth = false;
    EXPECT_TRUE(Cell(true).get(truth).ok());
    EXPECT_TRUE(truth);
}

TEST(Cell, NullTableHandlesGiveATableOfTheirOwn) {
    Ptr<Table const> const bodiless(new Table(Ptr<TableImplementation>()));
    for (Cell const& cell : {Cell(Ptr<Table>()), Cell(Ptr<Table const>()), Cell(bodiless)}) {
        EXPECT_EQ(printed(cell), "Table - Null Table\n");
    }
    EXPECT_NE(nested(Cell(Ptr<Table>())).get(), nested(Cell(Ptr<Table>())).get());
}

TEST(Cell, SharesATableAndCopiesAConstOne) {
    Ptr<Table> const source = brief("A 1");
    source->getAttributes()->at(0, 0, Cell("attribute"));
    Cell const shares(source);
    Cell const copies{Ptr<Table const>(source)};
    source->at("A", 1, Cell(2));
    EXPECT_EQ(nested(shares).get(), source.get());
    EXPECT_EQ(brief(copies), "{t A 1 }");
    EXPECT_EQ(brief(*nested(copies)->getAttributes()), "attribute");
    nested(copies)->at("A", 1, Cell(3));
    Ptr<Table const> seen;
    EXPECT_TRUE(copies.get(seen).ok());
    EXPECT_EQ(brief(*seen), "A 3");
    EXPECT_EQ(brief(*source), "A 2");
}

TEST(Cell, CopiesShareAndMovesTakeOver) {
    Ptr<Table> const body = brief("");
    Cell a(body);
    std::uint32_t const one = body.useCount();
    Cell b(a);
    Cell c;
    c = b;
    Cell const& self = c;
    c = self;
    EXPECT_EQ(body.useCount(), one) << "cells share a body instead of copying it";
    Cell const moved(std::move(a));
    b = std::move(c);
    EXPECT_EQ(brief(a) + brief(c), "--");
    EXPECT_EQ(nested(moved).get(), body.get());
    EXPECT_EQ(nested(b).get(), body.get());
}

} // namespace
} // namespace QX
