#include "table/src/roworder.h"

#include "base/fastpaths.h"
#include "cell/cellvalue.h"
#include "cell/numbertext.h"
#include "table/src/rowmatch.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>

namespace QX {

namespace {

using CellOrder = std::vector<Cell const*>;

/// Puts a value in its place among ordered ones unless it is there already. The order need not be an honest
/// one: the search stays within bounds whatever it answers.
void insertValue(CellOrder& values, Cell const& value) {
    std::size_t low = 0;
    std::size_t high = values.size();
    while (low < high) {
        std::size_t const middle = low + (high - low) / 2;
        if (value < *values[middle]) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    if (low == 0 || *values[low - 1] < value) {
        values.insert(values.begin() + static_cast<std::ptrdiff_t>(low), &value);
    }
}

/// The rows whose cells are empty and the others, both as given, and the distinct values in their order.
struct Values {
    Rows empty;
    Rows filled;
    CellOrder values;

    Values(Column const& column, Rows const& rows) {
        for (std::size_t const row : rows) {
            if (column[row].empty()) {
                empty.push_back(row);
            } else {
                filled.push_back(row);
                insertValue(values, column[row]);
            }
        }
    }
};

/// Lists for each value the rows that equal it, as `match` finds them, and the empty ones at their end.
template <typename Match>
Rows grouped(Column const& column, Rows const& rows, bool ascending, Match const& match) {
    Values parts(column, rows);
    if (!ascending) {
        std::reverse(parts.values.begin(), parts.values.end());
    }
    Cell const title;
    std::vector<Cell> values{title}; // item 0, which takes no part
    for (Cell const* value : parts.values) {
        values.push_back(*value);
    }
    std::vector<Cell> cells{title};
    for (std::size_t const row : parts.filled) {
        cells.push_back(column[row]);
    }
    Rows listed = match(Column(cells, cells.size(), title), Column(values, values.size(), title));
    for (std::size_t& place : listed) {
        place = parts.filled[place - 1];
    }
    listed.insert(ascending ? listed.begin() : listed.end(), parts.empty.begin(), parts.empty.end());
    return listed;
}

template <typename Key>
struct KeyedRow {
    Key key;
    std::size_t row;
};

template <typename Key>
void stableSort(std::vector<KeyedRow<Key>>& rows, bool ascending) {
    std::stable_sort(rows.begin(), rows.end(),
                     [ascending](KeyedRow<Key> const& a, KeyedRow<Key> const& b) {
                         return ascending ? a.key < b.key : b.key < a.key;
                     });
}

template <typename Key>
void appendRows(Rows& rows, std::vector<KeyedRow<Key>> const& keyed) {
    for (KeyedRow<Key> const& each : keyed) {
        rows.push_back(each.row);
    }
}

/// A text to be compared by its first bytes, taken as one number, and only then as a whole.
struct TextKey {
    std::uint64_t head;
    std::string_view text;

    bool operator<(TextKey const& other) const {
        return head != other.head ? head < other.head : text < other.text;
    }
};

/// Takes the head of every text from behind what all of them begin with.
void setHeads(std::vector<KeyedRow<TextKey>>& texts) {
    std::string_view common = texts.empty() ? std::string_view() : texts.front().key.text;
    for (KeyedRow<TextKey> const& each : texts) {
        auto const differ =
            std::mismatch(common.begin(), common.end(), each.key.text.begin(), each.key.text.end());
        common = common.substr(0, static_cast<std::size_t>(differ.first - common.begin()));
    }
    for (KeyedRow<TextKey>& each : texts) {
        std::string_view const rest = each.key.text.substr(common.size());
        for (std::size_t k = 0; k < sizeof each.key.head; ++k) {
            each.key.head =
                each.key.head << 8U | (k < rest.size() ? static_cast<unsigned char>(rest[k]) : 0U);
        }
    }
}

/// The cells of one column by kind, with the rows they stand in.
struct Split {
    Rows empty;
    std::vector<KeyedRow<double>> numbers;
    std::vector<KeyedRow<TextKey>> texts;
    bool honest = true; // false once a cell has been met whose order or equality is not

    void add(Cell const& cell, std::size_t row) {
        CellValue const value = valueOf(cell);
        if (cell.empty()) {
            empty.push_back(row);
        } else if (value.kind == Cell::StringCell) {
            texts.push_back({{0, value.text}, row});
        } else if (value.kind == Cell::NumericCell) {
            double const number = value.number.get();
            // Next to the smallest double stand both zeros, which the order takes for one.
            bool const smallest = std::fabs(number) == std::numeric_limits<double>::denorm_min();
            honest = honest && !std::isnan(number) && !smallest;
            numbers.push_back({number, row});
        } else {
            honest = false;
        }
    }

    /// True when a date stands beside numbers, which may equal it.
    bool mixesDates(Column const& column) const {
        return !numbers.empty() && std::any_of(texts.begin(), texts.end(), [&](auto const& text) {
            return isDate(column[text.row]);
        });
    }
};

} // namespace

Rows ordered(Column const& column, Rows const& rows, bool ascending) {
    if (fastPaths) {
        if (std::optional<Rows> sorted = orderedBySorting(column, rows, ascending)) {
            return std::move(*sorted);
        }
    }
    return grouped(column, rows, ascending, rowsOfValues);
}

Rows orderedByComparing(Column const& column, Rows const& rows, bool ascending) {
    return grouped(column, rows, ascending, rowsByComparing);
}

std::optional<Rows> orderedBySorting(Column const& column, Rows const& rows, bool ascending) {
    Split split;
    for (std::size_t const row : rows) {
        split.add(column[row], row);
        if (!split.honest) {
            return std::nullopt;
        }
    }
    if (split.mixesDates(column)) {
        return std::nullopt;
    }
    stableSort(split.numbers, ascending);
    auto const adjacent =
        std::adjacent_find(split.numbers.begin(), split.numbers.end(), [](auto const& a, auto const& b) {
            return a.key != b.key && equalNumbers(a.key, b.key);
        });
    if (adjacent != split.numbers.end()) {
        return std::nullopt;
    }
    setHeads(split.texts);
    stableSort(split.texts, ascending);
    Rows sorted;
    sorted.reserve(rows.size());
    if (ascending) {
        sorted = std::move(split.empty);
        appendRows(sorted, split.numbers);
        appendRows(sorted, split.texts);
    } else {
        appendRows(sorted, split.texts);
        appendRows(sorted, split.numbers);
        sorted.insert(sorted.end(), split.empty.begin(), split.empty.end());
    }
    return sorted;
}

} // namespace QX
