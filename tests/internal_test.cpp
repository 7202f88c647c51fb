#include "base/makeptr.h"
#include "brief.h"
#include "cell/equality.h"
#include "cell/movable.h"
#include "cell/number.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace QX {
namespace {

TEST(CellEquality, IsThatOfTheMatrixAlsoWhereLessDecides) {
    Ptr<Table> const shared = brief("A");
    std::vector<Cell> const cells{
        Cell(),
        Str(""),
        Str("a"),
        Str("A"),
        Str("a text that is not short"),
        Str("a text that is not short"),
        Str("A text that is not short"),
        Str("1970-01-02"),
        1,
        std::nextafter(1, 2),
        -1,
        0.0,
        -0.0,
        std::numeric_limits<double>::infinity(),
        std::nan(""),
        AnalyticDouble(),
        Status("x", Status::Error, -1),
        Status("y", Status::Error, -1),
        shared,
        shared,
        brief("A"),
    };
    for (Cell const& left : cells) {
        for (Cell const& right : cells) {
            for (bool const flag : {false, true}) {
                bool const equal = equalByKind(left, right, flag);
                EXPECT_EQ(left.compare(right, flag), equal) << brief(left) << brief(right) << flag;
                EXPECT_EQ(equalCells(left, right, flag), equal) << brief(left) << brief(right) << flag;
            }
        }
    }
}

TEST(CellBody, IsSharedByEveryCellThatHoldsIt) {
    Ptr<CellImplementation> const body =
        makePtr<CellImplementation>(Cell(Status("x", Status::Error, -1)));
    Detail::CellContent const& held = CellImplementation::contentOf(body->cell());
    EXPECT_STREQ(held.block()->location(), "qxdll");
    Cell const first(body);
    Ptr<Table> const t = brief("");
    t->at(2, 2, first);
    EXPECT_EQ(held.owners(), 3U);
    Ptr<Table> const copy = t->clone();
    EXPECT_EQ(held.owners(), 4U) << "a deep copy shares what never changes";
    t->at(2, 2, Cell());
    EXPECT_EQ(held.owners(), 3U);
}

TEST(CellBody, MovesByItsBytes) {
    std::vector<Cell> const cells{
        Cell(),      12.5, Str("short"), Str("a text that is not short"), Status("x", Status::Error, -1),
        brief("A 1")};
    for (Cell const& cell : cells) {
        alignas(Cell) std::byte from[sizeof(Cell)];
        alignas(Cell) std::byte to[sizeof(Cell)];
        new (from) Cell(cell);
        std::memcpy(to, from, sizeof(Cell));
        std::memset(from, 0xff, sizeof(Cell));
        Cell* const moved = std::launder(reinterpret_cast<Cell*>(to));
        EXPECT_EQ(printed(*moved), printed(cell));
        EXPECT_TRUE(sameBits(*moved, cell));
        moved->~Cell();
    }
}

} // namespace
} // namespace QX
