// The row kernel against plain loops over generated tables.

#include "generated.h"

#include <qx/ease.h>

#include <algorithm>
#include <random>

namespace QX {
namespace {

Positions data(Table const& table) {
    Positions rows;
    for (std::size_t j = 1; j < table.items(0); ++j) {
        rows.push_back(j);
    }
    return rows;
}

/// sameValue() as its contract reads.
bool plainlySame(Cell const& a, Cell const& b) {
    if (a.empty() || b.empty()) {
        return a.empty() == b.empty();
    }
    if (a.isA() != b.isA()) {
        return false;
    }
    double x = 0;
    double y = 0;
    switch (a.isA()) {
    case Cell::NumericCell:
        (void)a.get(x);
        (void)b.get(y);
        return x == y || (std::isnan(x) && std::isnan(y));
    case Cell::StringCell:
        return text(a) == text(b);
    case Cell::TableCell:
        return nested(a).get() == nested(b).get();
    case Cell::EmptyCell:
    case Cell::ErrorCell:
        break;
    }
    return true;
}

bool rowsSame(Table const& left, Positions const& leftKeys, std::size_t i, Table const& right,
              Positions const& rightKeys, std::size_t j) {
    bool same = true;
    for (std::size_t k = 0; k < leftKeys.size(); ++k) {
        same = same && plainlySame(left.get(leftKeys[k], i), right.get(rightKeys[k], j));
    }
    return same;
}

class EaseRows : public testing::TestWithParam<unsigned> {
protected:
    Ptr<Table> table(Generator::Cells const& pool) {
        return generate_.table(pool, 3, generate_.below(40));
    }
    Positions keys() {
        Positions keys;
        for (std::size_t n = generate_.below(4); n > 0; --n) {
            keys.push_back(generate_.below(4)); // the table has no index 3
        }
        return keys;
    }

    Generator generate_{GetParam()};
};

TEST_P(EaseRows, GroupsAndMatchesAsPlainLoopsDo) {
    Generator::Cells const pool = generate_.pool(generate_.flip());
    Ptr<Table> const left = table(pool);
    Ptr<Table> const right = table(pool);
    Positions const leftKeys = keys();
    Positions rightKeys;
    for (std::size_t k = 0; k < leftKeys.size(); ++k) {
        rightKeys.push_back(generate_.below(4));
    }

    Positions const groups = groupRows(*left, leftKeys);
    ASSERT_EQ(groups.size(), left->items(0));
    for (std::size_t j : data(*left)) {
        std::size_t first = 1;
        while (!rowsSame(*left, leftKeys, first, *left, leftKeys, j)) {
            ++first;
        }
        EXPECT_EQ(groups[j], first);
    }

    RowMatches const found = matchRows(*left, leftKeys, *right, rightKeys);
    ASSERT_EQ(found.first.size(), left->items(0));
    ASSERT_EQ(found.next.size(), right->items(0));
    for (std::size_t i : data(*left)) {
        Positions matches;
        for (std::size_t j = found.first[i]; j != Table::npos; j = found.next[j]) {
            matches.push_back(j);
        }
        Positions expected;
        for (std::size_t j : data(*right)) {
            if (rowsSame(*left, leftKeys, i, *right, rightKeys, j)) {
                expected.push_back(j);
            }
        }
        EXPECT_EQ(matches, expected);
    }
}

TEST_P(EaseRows, OrdersEveryRowOnceAndStably) {
    Ptr<Table> const sorted = table(generate_.pool(generate_.flip()));
    std::vector<RowKey> keyed;
    for (std::size_t const key : keys()) {
        keyed.push_back({key, generate_.flip()});
    }
    Positions expected = data(*sorted);
    std::stable_sort(expected.begin(), expected.end(), [&](std::size_t i, std::size_t j) {
        for (RowKey const& key : keyed) {
            int const order = orderValues(sorted->get(key.index, i), sorted->get(key.index, j));
            if (order != 0) {
                return (order < 0) != key.descending;
            }
        }
        return false;
    });
    EXPECT_EQ(orderRows(*sorted, keyed), expected);
}

TEST_P(EaseRows, OrdersAsSortWhereItKeepsRows) {
    Ptr<Table> const honest = table(generate_.pool(true));
    honest->at(0, 0) = Cell("a");
    bool const ascending = generate_.flip();
    Ptr<Table> result;
    ASSERT_TRUE(honest->sort(brief("a"), result, ascending).ok());
    Ptr<Table> const easy = sorted(honest, ascending ? SortKey("a") : descending("a"));
    EXPECT_EQ(exact(*easy), exact(*result));
}

TEST_P(EaseRows, SumsGroupsAsPlainLoopsDo) {
    Ptr<Table> const summed = tableOf("t", {{"k", {}}, {"n", {}}});
    std::size_t const count = generate_.below(200);
    std::vector<double> totals(10);
    std::vector<int> seen;
    for (std::size_t j = 1; j <= count; ++j) {
        auto const key = static_cast<int>(generate_.below(10));
        auto const value = static_cast<double>(generate_.below(1000));
        summed->at(0, j) = key % 2 == 0 ? Cell(double(key)) : Cell(Str("key " + std::to_string(key)));
        summed->at(1, j) = value;
        totals[static_cast<std::size_t>(key)] += value;
        if (std::find(seen.begin(), seen.end(), key) == seen.end()) {
            seen.push_back(key);
        }
    }
    std::vector<double> expected;
    for (int const key : seen) {
        expected.push_back(totals[static_cast<std::size_t>(key)]);
    }
    EXPECT_EQ(valuesOf<double>(grouped(summed, "k", {sum("n")}), "sum(n)"), expected);
}

INSTANTIATE_TEST_SUITE_P(Seeds, EaseRows, testing::Range(0U, 60U));

TEST(EaseValues, AreOrderedStrictlyAndWeakly) {
    Generator generate(7);
    std::vector<Cell> cells;
    for (int n = 0; n < 8; ++n) {
        Generator::Cells const pool = generate.pool(false);
        cells.insert(cells.end(), pool.begin(), pool.end());
    }
    auto const sign = [](int order) { return (order > 0) - (order < 0); };
    for (Cell const& a : cells) {
        for (Cell const& b : cells) {
            EXPECT_EQ(sameValue(a, b), plainlySame(a, b)) << exact(a) << " / " << exact(b);
            EXPECT_EQ(sign(orderValues(a, b)), -sign(orderValues(b, a)));
            EXPECT_TRUE(!sameValue(a, b) || orderValues(a, b) == 0);
            for (Cell const& c : cells) {
                EXPECT_TRUE(orderValues(a, b) > 0 || orderValues(b, c) > 0 || orderValues(a, c) <= 0);
            }
        }
    }
}

TEST(EaseAddIndex, TakesCellsOfTheSameTable) {
    Ptr<Table> const table = brief("a 1 2 | b 3");
    addIndex(*table, table->get(0, 0), *table, 0, {2, Table::npos, 1, 2});
    addIndex(*table, Cell("none"), *table, 3, {1});
    addIndex(*table, {});
    EXPECT_EQ(brief(*table), "a 1 2 | b 3 | a 2 - 1 2 | none - | ");
    Table bodiless{Ptr<TableImplementation>()};
    addIndex(bodiless, {Cell("a"), Cell(1.0)});
    EXPECT_EQ(brief(bodiless), "a 1");
}

} // namespace
} // namespace QX
