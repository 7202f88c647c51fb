#include "support.h"

#include <cmath>
#include <functional>
#include <limits>

namespace QX {
namespace {

constexpr std::size_t npos = Table::npos;
static_assert(npos == std::numeric_limits<std::size_t>::max());

/// A table of two indices of four and two items.
Ptr<Table> sample() {
    return table("t", {{"A", 1, 2, 3}, {"B", 4}});
}

char const* const sampleText = "Table - t\nIndex 0 <A> 1 2 3 \n      1 <B> 4 \n";

/// The lengths of the indices, as "4 2".
std::string shape(Table const& table) {
    std::string text;
    for (std::size_t i = 0; i < table.indices(); ++i) {
        text += (i == 0 ? "" : " ") + std::to_string(length(table, i));
    }
    return text;
}

TEST(Table, StartsEmpty) {
    Table const unnamed;
    EXPECT_EQ(string(unnamed.name()), "");
    EXPECT_EQ(unnamed.indices(), 0U);
    EXPECT_EQ(unnamed.items(0), 0U);
    EXPECT_TRUE(isShared(unnamed.get(0, 0)));
    EXPECT_EQ(sample()->items(7), 4U) << "the longest index, whatever the argument";
    EXPECT_EQ(table("n", {{1}, {1, 2}})->items(0), 2U);
}

TEST(Table, ConstAccessNeverGrows) {
    Ptr<Table> const t = sample();
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
    for (std::size_t const j : {std::size_t{0}, npos}) {
        EXPECT_TRUE(isShared(constant.get("C", j)));
        EXPECT_TRUE(isShared(constant.at("C", j)));
    }
    EXPECT_TRUE(isShared(constant.at("A", npos)));
    EXPECT_TRUE(isShared(constant.at("A", 4)));
    EXPECT_EQ(shown(*t), sampleText);
}

struct Growth {
    char const* name;
    std::function<Cell&(Table&)> access;
    char const* shape;
    std::size_t i;
    std::size_t j;
};

TEST(Table, GrowingAccessReachesEveryPosition) {
    Growth const rows[] = {
        {"within", [](Table& t) -> Cell& { return t.at(0, 3); }, "4 2", 0, 3},
        {"literal zeros", [](Table& t) -> Cell& { return t.at(0, 0); }, "4 2", 0, 0},
        {"longer index", [](Table& t) -> Cell& { return t.at(1, 4); }, "4 5", 1, 4},
        {"new index", [](Table& t) -> Cell& { return t.at(4, 2); }, "4 2 0 0 3", 4, 2},
        {"append both", [](Table& t) -> Cell& { return t.at(npos, npos); }, "4 2 1", 2, 0},
        {"append index", [](Table& t) -> Cell& { return t.at(npos, 2); }, "4 2 3", 2, 2},
        {"append item", [](Table& t) -> Cell& { return t.at(1, npos); }, "4 3", 1, 2},
        {"append item to new index", [](Table& t) -> Cell& { return t.at(3, npos); }, "4 2 0 1", 3, 0},
        {"name, within", [](Table& t) -> Cell& { return t.at("B", 1); }, "4 2", 1, 1},
        {"name, longer", [](Table& t) -> Cell& { return t.at("B", 3); }, "4 4", 1, 3},
        {"name, append", [](Table& t) -> Cell& { return t.at("B", npos); }, "4 3", 1, 2},
        {"new name, append", [](Table& t) -> Cell& { return t.at("C", npos); }, "4 2 2", 2, 1},
        {"new name, far", [](Table& t) -> Cell& { return t.at("C", 4); }, "4 2 5", 2, 4},
        {"new name itself", [](Table& t) -> Cell& { return t.at("C", 0); }, "4 2 1", 2, 0}};
    for (Growth const& row : rows) {
        SCOPED_TRACE(row.name);
        Ptr<Table> const t = sample();
        Cell& cell = row.access(*t);
        EXPECT_EQ(shape(*t), row.shape);
        EXPECT_EQ(&cell, &t->get(row.i, row.j));
        std::size_t const known[] = {4, 2};
        if (row.i > 1 || row.j >= known[row.i]) {
            EXPECT_EQ(printed(cell), std::string(row.name) == "new name itself" ? "C" : "[Empty]");
        }
        cell = Cell("stored");
        EXPECT_EQ(text(t->get(row.i, row.j)), "stored");
    }
    Ptr<Table> const t = table("t");
    t->at("C", npos);
    t->at("C", npos);
    EXPECT_EQ(shown(*t), "Table - t\nIndex 0 <C> [Empty] [Empty] \n");
}

TEST(Table, StoringAccessSharesTheBody) {
    Cell const cell(table("nested"));
    Ptr<Table> const t = sample();
    Cell const& stored = t->at(3, 2, cell);
    EXPECT_EQ(&stored, &t->get(3, 2));
    EXPECT_EQ(nested(stored).get(), nested(cell).get());
    Cell const& name = t->at("B", 0, Cell("b"));
    EXPECT_EQ(&name, &t->get(1, 0));
    Cell const& added = t->at(Str("C"), 1, Cell(5));
    EXPECT_EQ(&added, &t->get(4, 1));
    t->at(0, 0, Cell("a"));
    t->at(0, 3, Cell());
    EXPECT_EQ(shape(*t), "4 2 0 3 2");
    EXPECT_EQ(shown(*t), "Table - 0\nTable - t\nIndex 0 <a> 1 2 [Empty] \n      1 <b> 4 \n      2 <>\n"
                         "      3 <[Empty]> [Empty] `Table 0' \n      4 <C> 5 \n");
}

TEST(Table, StoringAtNposStoresNothing) {
    Ptr<Table> const t = sample();
    EXPECT_TRUE(isShared(t->at(npos, 0, Cell(9))));
    EXPECT_TRUE(isShared(t->at(-1, 0, Cell(9))));
    EXPECT_TRUE(isShared(t->at(0, npos, Cell(9))));
    EXPECT_TRUE(isShared(t->at(7, npos, Cell(9))));
    EXPECT_TRUE(isShared(t->at("A", npos, Cell(9))));
    EXPECT_EQ(shown(*t), sampleText);
    EXPECT_TRUE(isShared(t->at("C", npos, Cell(9))));
    EXPECT_EQ(shown(*t), std::string(sampleText) + "      2 <C> \n") << "the name is still added";
    EXPECT_EQ(printed(t->get(npos, npos)), "[Empty]");
}

TEST(Table, StoresItsOwnCells) {
    Ptr<Table> const t = sample();
    t->at(0, 100, t->get(0, 1));
    t->at(50, 0, t->get(0, 1));
    t->at("new", 70, t->at(0, 1));
    t->at("A", 200, t->at("A", 1));
    t->at(0, 1, t->at(0, 1));
    for (Cell const& cell :
         {t->get(0, 100), t->get(50, 0), t->get("new", 70), t->get("A", 200), t->get(0, 1)}) {
        EXPECT_EQ(printed(cell), "1");
    }
}

TEST(Table, NamesMatchAsCells) {
    Ptr<Table> const t = table("t", {{},
                                     {"A", "first"},
                                     {"A", "second"},
                                     {"a", "lower"},
                                     {2, "two"},
                                     {0.1 + 0.2, "neighbour"},
                                     {"1970-01-13", "date"},
                                     {Status("x", Status::Error, -1), "error"},
                                     {Cell(), "empty"}});
    std::pair<char const*, char const*> const rows[] = {
        {"A", "first"},       {"a", "lower"},       {"2", "two"},
        {"2.0", "two"},       {" 2", "two"},        {"2 ", "[Empty]"},
        {"0.3", "neighbour"}, {"12", "date"},       {"## 0 1073741824", "two"},
        {"#Err: y", "error"}, {"[Empty]", "empty"}, {"", "error"},
        {"B", "[Empty]"}};
    for (auto const& [name, value] : rows) {
        EXPECT_EQ(printed(t->get(name, 1)), std::string(name).empty() ? "empty" : value) << name;
    }
    t->at("2", 1, Cell("changed"));
    t->at("3", 1, Cell("added"));
    EXPECT_EQ(t->indices(), 10U);
    EXPECT_EQ(printed(t->get(4, 1)), "changed");
    EXPECT_EQ(t->get(9, 0).isA(), Cell::NumericCell);
}

TEST(Table, PositionsBeyondMemoryLeaveItUnchanged) {
    std::function<void(Table&)> const accesses[] = {
        [](Table& t) { t.at(npos - 1, 0); },          [](Table& t) { t.at(0, npos - 1); },
        [](Table& t) { t.at(5, npos - 1); },          [](Table& t) { t.at(npos, npos - 1); },
        [](Table& t) { t.at("A", npos - 1); },        [](Table& t) { t.at("C", npos - 1); },
        [](Table& t) { t.at(npos - 1, 0, Cell(1)); }, [](Table& t) { t.at(-2, 0, Cell(1)); },
        [](Table& t) { t.at(5, npos - 1, Cell(1)); }, [](Table& t) { t.at("C", npos - 1, Cell(1)); }};
    for (auto const& access : accesses) {
        Ptr<Table> const t = sample();
        Table bodiless{Ptr<TableImplementation>()};
        EXPECT_THROW(access(*t), std::exception);
        EXPECT_EQ(shown(*t), sampleText);
        EXPECT_THROW(access(bodiless), std::exception);
        EXPECT_EQ(shown(bodiless), "Null table\n");
    }
}

struct Inside : Table {
    using Table::getImplementation;
    using Table::Table;
};

TEST(Table, HandleWithoutABodyReadsAsEmpty) {
    Inside t{Ptr<TableImplementation>()};
    Table const& constant = t;
    EXPECT_TRUE(t.getImplementation().isNull());
    EXPECT_EQ(string(t.name()), "");
    EXPECT_EQ(t.indices(), 0U);
    EXPECT_EQ(t.items(0), 0U);
    EXPECT_TRUE(isShared(constant.at(0, 0)));
    EXPECT_TRUE(isShared(constant.at("A", 0)));
    EXPECT_TRUE(t.check());
    EXPECT_EQ(shown(*t.clone()), "Table - \n");
    EXPECT_EQ(t.getAttributes()->indices(), 0U);
    EXPECT_TRUE(t.getImplementation().isNull()) << "reading makes no body";
    t.at("A", 1, Cell(1));
    EXPECT_EQ(shown(t), "Table - \nIndex 0 <A> 1 \n");
    Table grown{Ptr<TableImplementation>()};
    grown.at(0, 1);
    EXPECT_EQ(shown(grown), "Table - \nIndex 0 <[Empty]> [Empty] \n");
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
    for (Table const* const t : {static_cast<Table const*>(&a), &b, static_cast<Table const*>(&d)}) {
        EXPECT_EQ(shown(*t), "Table - t\nIndex 0 <A> 1 2 \n");
    }
}

} // namespace
} // namespace QX
