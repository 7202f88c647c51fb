// Ranges of indices, items, rows and nested tables. Compiled as C++17 and as C++20.

#include "support.h"

#include <qx/ease.h>

#include <algorithm>
#include <numeric>
#if __cplusplus >= 202002L
#include <iterator>
#include <ranges>
#endif

namespace QX {
namespace {

Ptr<Table> moons() {
    return tableOf("moons",
                   {{"body", {"Mars", "Earth", "Saturn"}}, {"moons", {2, 1, 146}}, {"short", {7}}});
}

#if __cplusplus >= 202002L
static_assert(std::random_access_iterator<Items::Iterator>);
static_assert(std::random_access_iterator<WritableItems::Iterator>);
static_assert(std::indirectly_writable<WritableItems::Iterator, Cell>);
static_assert(std::random_access_iterator<Indices::Iterator>);
static_assert(std::random_access_iterator<Ease::Rows::Iterator>);
static_assert(std::random_access_iterator<WritableRows::Iterator>);
static_assert(std::random_access_iterator<Ease::Row::Iterator>);
static_assert(std::forward_iterator<decltype(NestedTables(Table()).begin())>);
static_assert(std::ranges::random_access_range<Index> && std::ranges::sized_range<Index>);
static_assert(std::ranges::random_access_range<Ease::Row> && std::ranges::sized_range<Ease::Row>);
static_assert(std::ranges::forward_range<NestedTables>);

TEST(EaseRange, WorksWithRangeAlgorithms) {
    Ptr<Table> const table = moons();
    auto const many = [](Ease::Row const& row) { return valueOr(row["moons"], 0) > 1; };
    std::string names;
    for (auto const& row : Ease::rows(table)) {
        names += many(row) ? valueOr(row["body"], "") + " " : "";
    }
    EXPECT_EQ(names, "Mars Saturn ");
    EXPECT_EQ(std::ranges::count_if(Ease::rows(table), many), 2);
    auto const found = std::ranges::max_element(items(table, "moons"), {},
                                                [](Cell const& cell) { return valueOr(cell, 0); });
    static_assert(std::is_same_v<decltype(found), std::ranges::dangling const>);
#ifndef __clang__ // clang 14 can't compile the standard library's views
    std::string filtered;
    for (auto const& row : Ease::rows(table) | std::views::filter(many) | std::views::reverse) {
        filtered += std::to_string(row.number());
    }
    EXPECT_EQ(filtered, "31");
#endif
}
#endif

TEST(EaseRange, GoesOverIndicesAndTheirItems) {
    Ptr<Table> const table = moons();
    std::string all;
    for (Index const index : indices(table)) {
        all += std::to_string(index.number()) + text(index.name()) + ":";
        for (Cell const& cell : index) {
            all += " " + text(cell);
        }
        all += "; ";
    }
    EXPECT_EQ(all, "0body: Mars Earth Saturn; 1moons: 2 1 146; 2short: 7  ; ");
    EXPECT_EQ(indices(table).size(), 3U);
    Index const last = *(indices(table).end() - 1);
    EXPECT_EQ(last.size(), 3U);
    EXPECT_EQ(text(last[0]) + text(last[1]), "short7");
    EXPECT_TRUE(isShared(last[2]) && isShared(last[9]));

    auto const values = items(*table, "moons");
    EXPECT_EQ(values.end() - values.begin(), 3);
    EXPECT_EQ(values.begin() + 3, values.end());
    EXPECT_EQ(&values.begin()[1], &table->get(1, 2));
    auto const sum = [](double total, Cell const& cell) { return total + valueOr(cell, 0.0); };
    EXPECT_EQ(std::accumulate(values.begin(), values.end(), 0.0, sum), 149);
}

TEST(EaseRange, WritesItems) {
    Ptr<Table> const table = moons();
    for (Cell& cell : writableItems(table, "short")) {
        cell = Cell(valueOr(cell, 1.0) * 2);
    }
    EXPECT_EQ(valuesOf<int>(table, "short"), (std::vector<int>{14, 2, 2}));
    auto const moons = writableItems(*table, "moons");
    std::sort(moons.begin(), moons.end(),
              [](Cell const& a, Cell const& b) { return orderValues(a, b) < 0; });
    EXPECT_EQ(valuesOf<int>(table, "moons"), (std::vector<int>{1, 2, 146}));
}

TEST(EaseRow, ReadsAndWritesByNameAndNumber) {
    Ptr<Table> const table = moons();
    for (auto const row : Ease::rows(table)) {
        EXPECT_EQ(&row["moons"].operator Cell const&(), &table->get(1, row.number()));
        row["double"] = 2 * valueOr(row[1], 0);
        row[2] = row["body"];
        EXPECT_EQ(row.size(), 4U);
    }
    EXPECT_EQ(valuesOf<int>(table, "double"), (std::vector<int>{4, 2, 292}));
    EXPECT_EQ(valuesOf<std::string>(table, "short"),
              (std::vector<std::string>{"Mars", "Earth", "Saturn"}));

    Table const& readable = *table;
    auto const row = *Ease::rows(readable).begin();
    static_assert(std::is_same_v<decltype(row), Ease::Row const>);
    std::string cells;
    for (Cell const& cell : row) {
        cells += text(cell) + " ";
    }
    EXPECT_EQ(cells, "Mars 2 Mars 4 ");
    EXPECT_EQ(text(rowOf(readable, 0)["body"]), "body");
    EXPECT_EQ(text(rowOf(readable, 9)["body"]), "");
    rowOf(*table, 4)["body"] = "Pluto";
    EXPECT_EQ(table->items(0), 5U);
}

TEST(EaseRow, NamesWhatIsMissing) {
    Ptr<Table> const table = moons();
    auto const row = rowOf(*table, 1);
    EXPECT_EQ(text(Ease::Row(row)["short"]), "7");
    try {
        (void)static_cast<Cell const&>(row["moon"]);
        ADD_FAILURE() << "nothing raised";
    } catch (std::exception const& failure) {
        EXPECT_STREQ(failure.what(), "No index 'moon' in 'moons', did you mean 'moons'?");
    }
    EXPECT_THROW((void)Ease::Row(row)["kind"], Except);
    EXPECT_EQ(table->indices(), 3U); // reading adds none
}

TEST(EaseRange, HasNothingInEmptyTables) {
    Ptr<Table> const none(new Table);
    EXPECT_TRUE(Ease::rows(none).empty() && indices(none).empty());
    EXPECT_EQ(nestedTables(none).begin(), nestedTables(none).end());
    Ptr<Table> const names = tableOf("t", {{"a", {}}});
    EXPECT_TRUE(Ease::rows(names).empty() && items(names, "a").empty());
    EXPECT_THROW((void)Ease::rows(Ptr<Table>()), Failure);
}

TEST(EaseRange, HoldsTheTableOfAHandle) {
    std::size_t count = 0;
    for (auto const row : Ease::rows(moons())) {
        count += static_cast<std::size_t>(valueOr(row["moons"], 0));
    }
    for (NestedTable const& found : nestedTables(tableOf("outer", {{"t", {moons()}}}))) {
        count += found.table->indices();
    }
    EXPECT_EQ(count, 152U);
}

TEST(EaseNested, GoesDepthFirst) {
    Ptr<Table> const inner = tableOf("inner", {{"x", {1}}});
    Ptr<Table> const table = tableOf("outer", {{"a", {tableOf("first", {{"b", {1, inner}}}), 5, inner}},
                                               {"c", {std::nullopt, inner}}});
    std::string order;
    for (NestedTable const& found : nestedTables(*table)) {
        order += std::to_string(found.depth) + string(found.table->name()) +
                 std::to_string(found.index) + std::to_string(found.item) + " ";
    }
    EXPECT_EQ(order, "1first01 2inner02 1inner03 1inner12 ");
    auto const tables = nestedTables(table);
    auto it = tables.begin();
    auto const before = it++;
    EXPECT_NE(before, it);
    EXPECT_EQ(std::next(before), it);
}

TEST(EaseNested, RaisesForATableWithinItself) {
    Ptr<Table> const table = tableOf("t", {{"a", {1}}});
    Ptr<Table> side = tableOf("side", {});
    for (int k = 0; k < 70; ++k) {
        side = tableOf("side", {{"s", {side}}});
    }
    Ptr<Table> const inner = tableOf("inner", {{"b", {side, tableOf("t", {{"c", {side, table}}})}}});
    table->at("a", 2) = inner;
    std::size_t met = 0;
    try {
        for (NestedTable const& found : nestedTables(*table)) {
            met += found.depth;
        }
        ADD_FAILURE() << "nothing raised";
    } catch (Except const& except) {
        EXPECT_EQ(outcome(except.report()), "Table contains itself");
    }
    EXPECT_GT(met, 0U);
    table->at("a", 2) = Cell();

    Ptr<Table> deep = tableOf("leaf", {});
    for (int k = 0; k < 20000; ++k) {
        deep = tableOf("t", {{"a", {deep}}});
    }
    auto const tables = nestedTables(deep);
    EXPECT_EQ(std::distance(tables.begin(), tables.end()), 20000);
}

} // namespace
} // namespace QX
