#include "base/makeptr.h"
#include "brief.h"
#include "cell/cellempty.h"
#include "cell/cellerror.h"
#include "cell/cellnumeric.h"
#include "cell/cellstring.h"
#include "cell/celltable.h"

#include <cmath>
#include <vector>

namespace QX {
namespace {

TEST(CellBody, ClonesToABodyOfItsOwn) {
    Ptr<Table> const held = brief("A 1", "held");
    AnalyticDouble fraction(5, 2);
    EXPECT_EQ(Cell(CellEmpty().clone()).isA(), Cell::EmptyCell);
    EXPECT_EQ(printed(Cell(CellNumeric(fraction).clone())), "## 0 1074003968");
    EXPECT_TRUE(CellNumeric(AnalyticDouble()).clone()->empty());
    EXPECT_EQ(printed(Cell(CellString("12").clone())), "12");
    EXPECT_EQ(CellString("12").clone()->isA(), Cell::StringCell) << "the text rule does not apply again";
    Ptr<CellImplementation> const ofError = CellError(Status("x", Status::Error, -1)).clone();
    EXPECT_EQ(ofError->isA(), Cell::StringCell);
    EXPECT_TRUE(ofError->empty());
    Cell const ofTable(CellTable(held).clone());
    EXPECT_EQ(printed(ofTable), "Table - held\n");
    EXPECT_NE(nested(ofTable).get(), held.get());
}

TEST(CellBody, EqualsWhatItsCellEquals) {
    AnalyticDouble notValid;
    std::vector<Ptr<CellImplementation>> const bodies{
        makePtr<CellEmpty>(),
        CellString("").clone(),
        CellString("a").clone(),
        CellString("A").clone(),
        CellString("a text that is not short").clone(),
        CellString("A text that is not short").clone(),
        CellString("1970-01-02").clone(),
        makePtr<CellNumeric>(validNumber(1)),
        makePtr<CellNumeric>(validNumber(std::nextafter(1, 2))),
        makePtr<CellNumeric>(validNumber(-1)),
        makePtr<CellNumeric>(notValid),
        makePtr<CellError>(Status("x", Status::Error, -1)),
        makePtr<CellTable>(brief("A")),
        makePtr<CellTable>(brief("A")),
    };
    for (Ptr<CellImplementation> const& left : bodies) {
        Cell const cell(left);
        EXPECT_EQ(cell.empty(), left->empty()) << brief(cell);
        for (Ptr<CellImplementation> const& right : bodies) {
            for (bool const flag : {false, true}) {
                EXPECT_EQ(cell.compare(Cell(right), flag), left->compare(*right, flag))
                    << brief(cell) << " and " << brief(Cell(right)) << ", " << flag;
            }
        }
    }
}

TEST(CellBody, IsSharedByEveryCellThatHoldsIt) {
    Ptr<CellImplementation> const body = makePtr<CellError>(Status("x", Status::Error, -1));
    EXPECT_STREQ(blockOf(body)->location(), "qxdll");
    Cell const first(body);
    Ptr<Table> const t = brief("");
    t->at(2, 2, first);
    EXPECT_EQ(body.useCount(), 3U);
    Ptr<Table> const copy = t->clone();
    EXPECT_EQ(body.useCount(), 4U) << "a deep copy shares what never changes";
    t->at(2, 2, Cell());
    EXPECT_EQ(body.useCount(), 3U);
}

} // namespace
} // namespace QX
