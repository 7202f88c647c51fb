#include "aggregate.h"

#include "failure.h"
#include "journal.h"

#include <algorithm>

namespace qxtab {

namespace {

using Cells = std::vector<QX::Cell>;

struct Totals {
    std::vector<double> sums;
    std::vector<double> counts;
};

Totals totalsOf(Data const& data, std::size_t column, RowGroups const& groups) {
    Totals totals{std::vector<double>(groups.firsts.size()), std::vector<double>(groups.firsts.size())};
    std::size_t misfits = 0;
    for (std::size_t j = 1; j < groups.of.size(); ++j) {
        QX::Cell const& cell = data.cell(column, j);
        if (std::optional<double> const number = numberOf(cell)) {
            totals.sums[groups.of[j]] += *number;
            totals.counts[groups.of[j]] += 1;
        } else {
            misfits += cell.empty() ? 0 : 1;
        }
    }
    if (misfits != 0) {
        tell("fields of '" + data.name(column) +
             "' that are no numbers, and are left out: " + std::to_string(misfits));
    }
    return totals;
}

Cells sums(Data const& data, std::size_t column, RowGroups const& groups) {
    Totals const totals = totalsOf(data, column, groups);
    return {totals.sums.begin(), totals.sums.end()};
}

Cells means(Data const& data, std::size_t column, RowGroups const& groups) {
    Totals const totals = totalsOf(data, column, groups);
    Cells cells;
    for (std::size_t g = 0; g < totals.sums.size(); ++g) {
        cells.push_back(totals.counts[g] > 0 ? QX::Cell(totals.sums[g] / totals.counts[g]) : QX::Cell());
    }
    return cells;
}

Cells cellsAt(Data const& data, std::size_t column, Positions const& rows) {
    Cells cells;
    for (std::size_t const row : rows) {
        cells.push_back(row == QX::Table::npos ? QX::Cell() : data.cell(column, row));
    }
    return cells;
}

Cells extremes(Data const& data, std::size_t column, RowGroups const& groups, int sign) {
    Keys const keys = keysOf(data, {column});
    std::size_t const key = keys.columns.front();
    Positions best(groups.firsts.size(), QX::Table::npos);
    for (std::size_t j = 1; j < groups.of.size(); ++j) {
        QX::Cell const& cell = keys.table->get(key, j);
        std::size_t& row = best[groups.of[j]];
        bool const better =
            row == QX::Table::npos || sign * QX::orderValues(cell, keys.table->get(key, row)) < 0;
        row = !cell.empty() && better ? j : row;
    }
    return cellsAt(data, column, best);
}

Cells least(Data const& data, std::size_t column, RowGroups const& groups) {
    return extremes(data, column, groups, 1);
}

Cells greatest(Data const& data, std::size_t column, RowGroups const& groups) {
    return extremes(data, column, groups, -1);
}

Cells firsts(Data const& data, std::size_t column, RowGroups const& groups) {
    return cellsAt(data, column, groups.firsts);
}

Cells lasts(Data const& data, std::size_t column, RowGroups const& groups) {
    Positions rows(groups.firsts.size(), QX::Table::npos);
    for (std::size_t j = 1; j < groups.of.size(); ++j) {
        rows[groups.of[j]] = j;
    }
    return cellsAt(data, column, rows);
}

// The numbers of groups are a column of their own, beside which equal values are found.
Cells distincts(Data const& data, std::size_t column, RowGroups const& groups) {
    Keys const keys = keysOf(data, {column});
    QX::Table pairs;
    QX::addIndex(pairs, Cells(groups.of.begin(), groups.of.end()));
    QX::addIndex(pairs, QX::Cell(), *keys.table, keys.columns.front(), allRows(data));
    Positions const first = QX::groupRows(pairs, {0, 1});
    std::vector<double> counts(groups.firsts.size());
    for (std::size_t j = 1; j < groups.of.size(); ++j) {
        counts[groups.of[j]] += first[j] == j && !data.cell(column, j).empty() ? 1 : 0;
    }
    return {counts.begin(), counts.end()};
}

} // namespace

std::vector<Aggregate> const& aggregates() {
    static std::vector<Aggregate> const all = {
        {"sum", "The sums of these columns", false, sums},
        {"mean", "Their means", false, means},
        {"min", "Their smallest values", true, least},
        {"max", "Their largest values", true, greatest},
        {"first", "The fields of the first row of each group", true, firsts},
        {"last", "The fields of the last row of each group", true, lasts},
        {"distinct", "The numbers of different values", false, distincts},
    };
    return all;
}

Aggregate const& aggregateNamed(std::string const& name) {
    return *std::find_if(aggregates().begin(), aggregates().end(),
                         [&](Aggregate const& each) { return name == each.name; });
}

RowGroups oneGroup(Data const& data) {
    bool const any = data.rows() != 0;
    return {{any ? 1 : QX::Table::npos}, Positions(data.rows() + 1)};
}

} // namespace qxtab
