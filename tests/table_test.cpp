#include "brief.h"

#include <limits>

namespace QX {
namespace {

constexpr std::size_t npos = Table::npos;
static_assert(npos == std::numeric_limits<std::size_t>::max());

char const* const sample = "A 1 2 3 | B 4";

Table bodiless() {
    return Table(Ptr<TableImplementation>());
}

TEST(Table, ConstAccessNeverGrows) {
    Ptr<Table> const t = brief(sample);
    Table const& constant = *t;
    for (std::size_t const i : {std::size_t{0}, std::size_t{1}, std::size_t{2}, npos}) {
        for (std::size_t const j : {std::size_t{0}, std::size_t{2}, std::size_t{4}, npos}) {
            bool const exists = (i == 0 && j < 4) || (i == 1 && j < 2);
            EXPECT_EQ(isShared(constant.get(i, j)), !exists) << i << ' ' << j;
            EXPECT_EQ(&constant.at(i, j), &constant.get(i, j));
        }
    }
    EXPECT_EQ(&constant.at("A", 2), &constant.get(0, 2));
    EXPECT_EQ(&constant.get("A", 2), &constant.get(0, 2));
    for (Cell const* const cell : {&constant.get("C", 0), &constant.get("C", npos), &constant.at("C", 0),
                                   &constant.at("A", npos), &constant.at("A", 4)}) {
        EXPECT_TRUE(isShared(*cell));
    }
    EXPECT_EQ(brief(*t), sample);
    EXPECT_EQ(t->items(7), 4U) << "the longest index, whatever the argument";
    EXPECT_EQ(brief("1 | 1 2")->items(0), 2U);
}

/// Reaches for a cell at "i j", numbers, names or npos ("+").
Cell& reach(Table& t, std::string const& place) {
    std::string i;
    std::string j;
    std::istringstream(place) >> i >> j;
    auto const position = [](std::string const& text) { return text == "+" ? npos : std::stoul(text); };
    return std::isalpha(static_cast<unsigned char>(i[0])) != 0 ? t.at(Str(i), position(j))
                                                               : t.at(position(i), position(j));
}

TEST(Table, GrowingAccessReachesEveryPosition) {
    for (Row const& row : rows(R"(
        0 3 ; A 1 2 * | B 4
        1 4 ; A 1 2 3 | B 4 - - *
        4 2 ; A 1 2 3 | B 4 | | | - - *
        + + ; A 1 2 3 | B 4 | *
        + 2 ; A 1 2 3 | B 4 | - - *
        1 + ; A 1 2 3 | B 4 *
        3 + ; A 1 2 3 | B 4 | | *
        B 1 ; A 1 2 3 | B *
        B 3 ; A 1 2 3 | B 4 - *
        B + ; A 1 2 3 | B 4 *
        C + ; A 1 2 3 | B 4 | C *
        C 4 ; A 1 2 3 | B 4 | C - - - *
        C 0 ; A 1 2 3 | B 4 | *
    )")) {
        Ptr<Table> const t = brief(sample);
        Cell& cell = reach(*t, row[0]);
        std::string const added = brief(cell);
        cell = Cell("*");
        EXPECT_EQ(brief(*t), row[1]) << row.line;
        bool const existed = row[0] == "0 3" || row[0] == "B 1";
        EXPECT_TRUE(existed || added == (row[0] == "C 0" ? "C" : "-")) << row.line << ": " << added;
    }
    Ptr<Table> const t = brief(sample);
    EXPECT_EQ(&t->at(0, 0), &t->get(0, 0)) << "literal zeros";
    t->at("D", npos);
    t->at("D", npos);
    EXPECT_EQ(brief(*t), "A 1 2 3 | B 4 | D - -");
}

TEST(Table, StoringAccessSharesTheBody) {
    Cell const cell(brief("", "n"));
    Ptr<Table> const t = brief(sample);
    Cell const& stored = t->at(3, 2, cell);
    EXPECT_EQ(&stored, &t->get(3, 2));
    EXPECT_EQ(nested(stored).get(), nested(cell).get());
    Cell const& name = t->at("B", 0, Cell("b"));
    EXPECT_EQ(&name, &t->get(1, 0));
    Cell const& added = t->at(Str("C"), 1, Cell(5));
    EXPECT_EQ(&added, &t->get(4, 1));
    t->at(0, 0, Cell("a"));
    t->at(0, 3, Cell());
    EXPECT_EQ(brief(*t), "a 1 2 - | b 4 | | - - {n } | C 5");
}

TEST(Table, StoringAtNposStoresNothing) {
    Ptr<Table> const t = brief(sample);
    EXPECT_TRUE(isShared(t->at(npos, 0, Cell(9))));
    EXPECT_TRUE(isShared(t->at(-1, 0, Cell(9))));
    EXPECT_TRUE(isShared(t->at(7, npos, Cell(9))));
    EXPECT_TRUE(isShared(t->at("A", npos, Cell(9))));
    EXPECT_TRUE(isShared(t->at("C", npos, Cell(9))));
    EXPECT_EQ(brief(*t), "A 1 2 3 | B 4 | C") << "the name is still added";
    EXPECT_EQ(printed(t->get(npos, npos)), "[Empty]");
}

TEST(Table, StoresItsOwnCells) {
    Ptr<Table> const t = brief(sample);
    t->at(0, 100, t->get(0, 1));
    t->at(50, 0, t->get(0, 1));
    t->at("new", 70, t->at(0, 1));
    t->at("A", 200, t->at("A", 1));
    t->at(0, 1, t->at(0, 1));
    for (Cell const& cell :
         {t->get(0, 100), t->get(50, 0), t->get("new", 70), t->get("A", 200), t->get(0, 1)}) {
        EXPECT_EQ(brief(cell), "1");
    }
}

TEST(Table, NamesMatchAsCells) {
    Ptr<Table> const t =
        brief("| A first | A second | a lower | 2 two | 0.30000000000000004 neighbour | "
              "1970-01-13 date | !x error");
    for (Row const& row : rows(R"(
        A ; first
        a ; lower
        2 ; two
        2.0 ; two
        ## 0 1073741824 ; two
        0.3 ; neighbour
        12 ; date
        #Err: y ; error
        B ; -
    )")) {
        EXPECT_EQ(brief(t->get(Str(row[0]), 1)), row[1]) << row.line;
    }
    EXPECT_EQ(brief(t->get("2 ", 1)), "-");
    t->at("2", 1, Cell("changed"));
    t->at("3", 1, Cell("added"));
    EXPECT_EQ(brief(t->get(4, 1)), "changed");
    EXPECT_EQ(t->get(8, 0).isA(), Cell::NumericCell);
    t->at(9, 1) = Cell("empty");
    EXPECT_EQ(brief(t->get("[Empty]", 1)), "empty");
    EXPECT_EQ(brief(t->get("", 1)), "empty");
}

struct Inside : Table {
    using Table::getImplementation;
    using Table::Table;
};

TEST(Table, HandleWithoutABodyReadsAsEmpty) {
    Inside t{Ptr<TableImplementation>()};
    Table const& constant = t;
    EXPECT_EQ(string(t.name()), "");
    EXPECT_EQ(t.indices() + t.items(0), 0U);
    EXPECT_TRUE(isShared(constant.at(0, 0)));
    EXPECT_TRUE(isShared(constant.at("A", 0)));
    EXPECT_TRUE(t.check());
    EXPECT_EQ(shown(*t.clone()), "Table - \n");
    EXPECT_EQ(t.getAttributes()->indices(), 0U);
    EXPECT_TRUE(t.getImplementation().isNull()) << "reading makes no body";
    t.at("A", 1, Cell(1));
    EXPECT_EQ(shown(t), "Table - \nIndex 0 <A> 1 \n");
    Table grown = bodiless();
    grown.at(0, 1);
    EXPECT_EQ(brief(grown), "- -");
}

TEST(Table, HandlesOfOneBodySeeEachOther) {
    Inside a("t");
    Table const b(a);
    Table c;
    c = a;
    Table& self = c;
    c = self;
    Inside const d(a.getImplementation());
    a.at("A", 1, Cell(1));
    c.at("A", 2, Cell(2));
    EXPECT_EQ(brief(a) + ", " + brief(b) + ", " + brief(d), "A 1 2, A 1 2, A 1 2");
}

TEST(Table, MayHoldItsLastHandle) {
    void (*const releases[])(Table&) = {
        [](Table& t) { t.at("A", 1) = Cell(); },         [](Table& t) { t.at("A", 1) = t.get("B", 1); },
        [](Table& t) { t.at("A", 1, t.get("B", 1)); },   [](Table& t) { t.at(0, 1, Cell(2)); },
        [](Table& t) { t.atXPath("A", true) = Cell(); }, [](Table& t) { t = Table("other"); },
    };
    for (auto const release : releases) {
        Ptr<Table> owner = brief("A - | B a_text_that_is_longer_than_short_ones");
        owner->at("A", 1) = Cell(owner);
        Table& table = *owner;
        owner = nullptr;
        release(table);
    }
}

} // namespace
} // namespace QX
