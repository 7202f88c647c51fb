#pragma once

#include "qx/ease/columns.h"
#include "qx/ease/names.h"
#include "qx/rows.h"
#include "qx/table.h"
#include "qx/values.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace QX {
inline namespace Ease {

/// What grouped() computes for each group, and the name of the index that holds it.
class Aggregate {
public:
    /// What is computed.
    enum Kind { Sum, Mean, Min, Max, First, Last, Count, CountDistinct };

    /// What `kind` computes of the index `of`, in an index named `name`.
    Aggregate(Kind kind, std::string const& name, IndexName const& of)
        : kind_(kind), of_(of), name_(name) {}

    /// The same under another name.
    Aggregate named(IndexName const& name) const {
        Aggregate other(*this);
        other.name_ = name;
        return other;
    }

    /// What is computed.
    Kind kind() const { return kind_; }
    /// The index whose values are aggregated; empty when it is the rows.
    IndexName const& of() const { return of_; }
    /// The name of the index in the result.
    IndexName const& name() const { return name_; }

private:
    Kind kind_;
    IndexName of_;
    IndexName name_;
};

/// The sum of the numbers in an index, 0 without numbers; empty cells add nothing. Named "sum(NAME)".
inline Aggregate sum(IndexName const& of) {
    return {Aggregate::Sum, std::string("sum(") + of.get() + ")", of};
}
/// The mean of the numbers in an index; an empty cell without numbers. Empty cells don't count.
inline Aggregate mean(IndexName const& of) {
    return {Aggregate::Mean, std::string("mean(") + of.get() + ")", of};
}
/// The value that orderValues() puts first, an empty cell where all are empty.
inline Aggregate min(IndexName const& of) {
    return {Aggregate::Min, std::string("min(") + of.get() + ")", of};
}
/// The value that orderValues() puts last, an empty cell where all are empty.
inline Aggregate max(IndexName const& of) {
    return {Aggregate::Max, std::string("max(") + of.get() + ")", of};
}
/// The cell of the group's first row, be it empty.
inline Aggregate first(IndexName const& of) {
    return {Aggregate::First, std::string("first(") + of.get() + ")", of};
}
/// The cell of the group's last row, be it empty.
inline Aggregate last(IndexName const& of) {
    return {Aggregate::Last, std::string("last(") + of.get() + ")", of};
}
/// The number of rows. Named "count".
inline Aggregate count() {
    return {Aggregate::Count, "count", IndexName()};
}
/// The number of cells in an index that are not empty.
inline Aggregate count(IndexName const& of) {
    return {Aggregate::Count, std::string("count(") + of.get() + ")", of};
}
/// The number of different values in an index, empty cells not counted, by sameValue().
inline Aggregate countDistinct(IndexName const& of) {
    return {Aggregate::CountDistinct, std::string("countDistinct(") + of.get() + ")", of};
}

} // namespace Ease

namespace Detail {

/// The groups of a table's rows: the first and last row of each, and for each row the number of its
/// group.
struct Groups {
    Groups(Table const& grouped, Positions const& groupKeys)
        : table(grouped), keys(groupKeys), of(dataRows(grouped) + 1) {
        Positions const firstEqual = groupRows(table, keys);
        if (keys.empty()) {
            firsts.push_back(Table::npos); // one group, also of no rows
            lasts.push_back(Table::npos);
        }
        for (std::size_t j = 1; j < of.size(); ++j) {
            if (firstEqual[j] == j && (!keys.empty() || j > 1)) {
                firsts.push_back(j);
                lasts.push_back(j);
            }
            of[j] = firstEqual[j] == j ? firsts.size() - 1 : of[firstEqual[j]];
            firsts[of[j]] = firsts[of[j]] == Table::npos ? j : firsts[of[j]];
            lasts[of[j]] = j;
        }
    }

    Table const& table;
    Positions keys;
    Positions firsts;
    Positions lasts;
    Positions of;
};

/// Sums, or with `mean` means.
inline std::vector<Cell> sums(Groups const& groups, std::size_t index, bool mean) {
    std::vector<double> totals(groups.firsts.size());
    std::vector<double> numbers(groups.firsts.size());
    IndexCells const cells = cellsOf(groups.table, index);
    ValueReader<double> const read(groups.table, index);
    for (std::size_t j = 1; j < groups.of.size(); ++j) {
        if (!cells[j].empty()) {
            totals[groups.of[j]] += read(j);
            numbers[groups.of[j]] += 1;
        }
    }
    std::vector<Cell> results;
    for (std::size_t g = 0; g < totals.size(); ++g) {
        results.push_back(!mean            ? Cell(totals[g])
                          : numbers[g] > 0 ? Cell(totals[g] / numbers[g])
                                           : Cell());
    }
    return results;
}

/// The rows with the least values, or the greatest with `sign` -1.
inline Positions extremes(Groups const& groups, std::size_t index, int sign) {
    Positions best(groups.firsts.size(), Table::npos);
    IndexCells const cells = cellsOf(groups.table, index);
    for (std::size_t j = 1; j < groups.of.size(); ++j) {
        std::size_t& row = best[groups.of[j]];
        if (!cells[j].empty() && (row == Table::npos || sign * orderValues(cells[j], cells[row]) < 0)) {
            row = j;
        }
    }
    return best;
}

/// The numbers of rows of which `counts(row)` holds.
template <typename Counts>
std::vector<Cell> counted(Groups const& groups, Counts const& counts) {
    std::vector<double> numbers(groups.firsts.size());
    for (std::size_t j = 1; j < groups.of.size(); ++j) {
        numbers[groups.of[j]] += counts(j) ? 1 : 0;
    }
    return {numbers.begin(), numbers.end()};
}

/// The cells of an aggregate, one for each group.
inline std::vector<Cell> aggregated(Groups const& groups, Aggregate const& aggregate) {
    Table const& table = groups.table;
    if (aggregate.of().empty()) {
        return counted(groups, [](std::size_t) { return true; });
    }
    std::size_t const index = indexOf(table, aggregate.of());
    IndexCells const cells = cellsOf(table, index);
    auto const cellsIn = [&](Positions const& rows) {
        std::vector<Cell> picked;
        for (std::size_t const row : rows) {
            picked.push_back(cells[row]);
        }
        return picked;
    };
    switch (aggregate.kind()) {
    case Aggregate::Sum:
    case Aggregate::Mean:
        return sums(groups, index, aggregate.kind() == Aggregate::Mean);
    case Aggregate::Min:
        return cellsIn(extremes(groups, index, 1));
    case Aggregate::Max:
        return cellsIn(extremes(groups, index, -1));
    case Aggregate::First:
        return cellsIn(groups.firsts);
    case Aggregate::Last:
        return cellsIn(groups.lasts);
    case Aggregate::Count:
        return counted(groups, [&](std::size_t j) { return !cells[j].empty(); });
    case Aggregate::CountDistinct: {
        Positions keys(groups.keys);
        keys.push_back(index);
        Positions const firstEqual = groupRows(table, keys);
        return counted(groups, [&](std::size_t j) { return firstEqual[j] == j && !cells[j].empty(); });
    }
    }
    return {};
}

} // namespace Detail

inline namespace Ease {

/// One row for each group of rows that are equal in some indices, with what is computed of each group:
/// `grouped(t, {"kind"}, {sum("moons"), mean("radius"), count().named("bodies")})`.
///
///     kind   planet planet dwarf       kind        planet dwarf
///     moons  1      2      5           sum(moons)  3      5
///
/// The groups come in the order of their first rows and hold the key cells of these, shared; rows are
/// equal as groupRows() says. Without keys there is one group of all rows, also when there are none. The
/// result is named after the table and has empty attributes.
///
/// Raises Failure as indexOf() does, and "'moons' in row 3 holds no such value: 'abc'" when a sum or mean
/// meets a cell that is neither a number nor empty. Cost: linear in the rows, for each key and aggregate.
[[nodiscard]] inline Ptr<Table> grouped(TableArgument const& table, Names const& keys,
                                        std::initializer_list<Aggregate> aggregates) {
    Detail::Groups const groups(*table, indicesOf(table, keys));
    Ptr<Table> made(new Table(table->name()));
    for (std::size_t const key : groups.keys) {
        addIndex(*made, table->get(key, 0), *table, key, groups.firsts);
    }
    for (Aggregate const& each : aggregates) {
        std::vector<Cell> cells = Detail::aggregated(groups, each);
        cells.insert(cells.begin(), Cell(static_cast<Str const&>(each.name())));
        addIndex(*made, std::move(cells));
    }
    return made;
}

} // namespace Ease
} // namespace QX
