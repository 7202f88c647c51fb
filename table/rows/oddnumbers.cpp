#include "table/rows/oddnumbers.h"

#include "cell/equality.h"
#include "cell/view.h"
#include "table/rows/sortkeys.h"
#include "table/rows/ulpindex.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace QX {

namespace {

/// Lists the rows of values that SortKeys has put in order.
class OddNumbers {
public:
    /// `places` are those in `rows`.
    OddNumbers(ColumnView const& column, Rows const& rows, Rows places)
        : column_(column), rows_(rows), places_(std::move(places)) {
        auto const number = std::find_if(rows.begin(), rows.end(), [&](std::size_t row) {
            return column[row].isA() == Cell::NumericCell;
        });
        onlyNan_ = number != rows.end() && std::isnan(numberOf(column[*number]).get());
        nan_ = onlyNan_ ? ulpWord(numberOf(column[*number]).get()) : 0;
    }

    Rows listed() {
        Rows listed;
        Group former{0, 0};
        Group group = groupFrom(0);
        while (group.begin < places_.size()) {
            Group const next = groupFrom(group.end);
            if (!isNumber(group)) {
                append(listed, group);
            } else if (isValue(group)) {
                appendEqual(listed, former, group, next);
            }
            former = group;
            group = next;
        }
        return listed;
    }

private:
    /// Places of one text, or of numbers of one word.
    struct Group {
        std::size_t begin;
        std::size_t end;
    };

    Cell const& cellAt(std::size_t k) const { return column_[rows_[places_[k]]]; }
    bool isNumber(Group const& group) const {
        return group.begin < group.end && cellAt(group.begin).isA() == Cell::NumericCell;
    }
    std::uint64_t wordOf(Group const& group) const { return wordAt(group.begin); }
    std::uint64_t wordAt(std::size_t k) const { return ulpWord(numberOf(cellAt(k)).get()); }
    bool isValue(Group const& group) const {
        return onlyNan_ ? wordOf(group) == nan_ : !std::isnan(numberOf(cellAt(group.begin)).get());
    }
    Group groupFrom(std::size_t begin) const {
        std::size_t end = begin;
        if (end < places_.size()) {
            ++end;
        }
        if (isNumber({begin, end})) {
            while (end < places_.size() && cellAt(end).isA() == Cell::NumericCell &&
                   wordAt(end) == wordAt(begin)) {
                ++end;
            }
        }
        return {begin, end};
    }
    void append(Rows& listed, Group const& group) const {
        for (std::size_t k = group.begin; k < group.end; ++k) {
            listed.push_back(rows_[places_[k]]);
        }
    }
    /// Appends the rows of a group and those of adjacent numbers that equal its first one.
    void appendEqual(Rows& listed, Group const& former, Group const& group, Group const& next) const {
        bool const below = isNumber(former) && isAdjacent(former, group);
        bool const above = isNumber(next) && isAdjacent(group, next);
        if (!below && !above) {
            append(listed, group);
            return;
        }
        Rows places;
        std::size_t const begin = below ? former.begin : group.begin;
        std::size_t const end = above ? next.end : group.end;
        for (std::size_t k = begin; k < end; ++k) {
            if (equalCells(cellAt(k), cellAt(group.begin), false)) {
                places.push_back(places_[k]);
            }
        }
        std::sort(places.begin(), places.end());
        for (std::size_t const place : places) {
            listed.push_back(rows_[place]);
        }
    }
    bool isAdjacent(Group const& one, Group const& other) const {
        std::uint64_t const step = wordOf(one) - wordOf(other);
        return step + 1 <= 2; // -1, 0 or 1
    }

    ColumnView const& column_;
    Rows const& rows_;
    Rows places_;
    bool onlyNan_;
    std::uint64_t nan_; // the word of the NaN that is the only number
};

} // namespace

Rows orderedOddNumbers(ColumnView const& column, ColumnProfile const& profile, Rows const& rows,
                       bool ascending) {
    Rows empty;
    Rows values;
    Rows errors;
    bool onlyErrors = false;
    for (std::size_t const row : rows) {
        bool const error = column[row].isA() == Cell::ErrorCell;
        onlyErrors = onlyErrors || (error && values.empty());
        (column[row].empty() ? empty : error ? errors : values).push_back(row);
    }
    Rows listed;
    if (onlyErrors) {
        listed = std::move(errors);
    } else {
        SortKeys sorting(values, ascending);
        sorting.sortBy(column, profile);
        listed = OddNumbers(column, values, sorting.places()).listed();
    }
    listed.insert(ascending ? listed.begin() : listed.end(), empty.begin(), empty.end());
    return listed;
}

} // namespace QX
