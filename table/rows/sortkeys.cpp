#include "table/rows/sortkeys.h"

#include "cell/view.h"
#include "table/rows/ulpindex.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>

namespace QX {

namespace {

using Key = std::uint64_t;

/// So many bytes of a text go into one key.
constexpr std::size_t textBytes = 7;

/// The key of what follows the first bytes of a text: shorter texts first where all bytes are equal.
Key textKey(std::string_view text) {
    Key key = 0;
    for (std::size_t k = 0; k < textBytes; ++k) {
        key = (key | (k < text.size() ? static_cast<unsigned char>(text[k]) : 0U)) << 8U;
    }
    return key | std::min(text.size(), textBytes + 1);
}

Key kindKey(Cell const& cell, std::size_t /*alike*/) {
    return cell.empty() ? 0 : cell.isA() == Cell::NumericCell ? 1 : 2;
}

/// The key of a number, or that of a text behind what is alike.
Key valueKey(Cell const& cell, std::size_t alike) {
    if (cell.empty()) {
        return 0;
    }
    bool const number = cell.isA() == Cell::NumericCell;
    return number ? ulpWord(numberOf(cell).get()) : textKey(textOf(cell).substr(alike));
}

} // namespace

SortKeys::SortKeys(Rows const& rows, bool ascending) : rows_(rows), flip_(ascending ? 0 : ~Key{0}) {
    entries_.reserve(rows.size());
    for (std::size_t place = 0; place < rows.size(); ++place) {
        entries_.push_back({0, place});
    }
    tied_.push_back({0, rows.size(), 0});
}

void SortKeys::sortBy(ColumnView const& column, ColumnProfile const& profile) {
    for (Range& range : tied_) {
        range.alike = profile.common.size();
    }
    if (profile.mixesKinds()) {
        refine(column, kindKey, [&](Range const& run) { tied_.push_back(run); });
    }
    std::vector<Range> done;
    for (bool again = false; !tied_.empty(); again = true) {
        refine(column, valueKey,
               [&](Range run) { (goesOn(column, run, again) ? tied_ : done).push_back(run); });
    }
    tied_ = std::move(done);
}

Rows SortKeys::rows() const {
    Rows sorted;
    sorted.reserve(entries_.size());
    for (SortEntry const& each : entries_) {
        sorted.push_back(rows_[each.row]);
    }
    return sorted;
}

Rows SortKeys::places() const {
    Rows sorted;
    sorted.reserve(entries_.size());
    for (SortEntry const& each : entries_) {
        sorted.push_back(each.row);
    }
    return sorted;
}

/// True when there is more to the texts of a run whose keys are equal. With `again` finds how far they are
/// alike, since texts that are so for two keys are often long and equal.
bool SortKeys::goesOn(ColumnView const& column, Range& run, bool again) const {
    Cell const& first = cellAt(column, run.begin);
    if (first.isA() != Cell::StringCell || textOf(first).size() <= run.alike + textBytes) {
        return false;
    }
    if (!again) {
        run.alike += textBytes;
        return true;
    }
    std::string_view common = textOf(first).substr(run.alike);
    std::size_t longest = 0;
    for (std::size_t k = run.begin; k < run.end; ++k) {
        std::string_view const text = textOf(cellAt(column, k)).substr(run.alike);
        common = commonPrefix(common, text);
        longest = std::max(longest, text.size());
    }
    run.alike += common.size();
    return longest > common.size();
}

/// Sorts the rows of each tie by the keys of their cells, and hands out the runs that stay tied.
template <typename KeyOf, typename Tie>
void SortKeys::refine(ColumnView const& column, KeyOf const& keyOf, Tie const& tie) {
    std::vector<Range> const ranges = std::exchange(tied_, {});
    setKeys(ranges, column, keyOf);
    SortEntry* const entries = entries_.data();
    for (Range const& range : ranges) {
        sortEntries(entries + range.begin, range.end - range.begin);
        for (std::size_t k = range.begin; k < range.end;) {
            std::size_t const begin = k;
            while (k < range.end && entries[k].key == entries[begin].key) {
                ++k;
            }
            if (k - begin > 1) {
                tie(Range{begin, k, range.alike});
            }
        }
    }
}

/// Sets the keys of the rows that are tied.
template <typename KeyOf>
void SortKeys::setKeys(std::vector<Range> const& ranges, ColumnView const& column, KeyOf const& keyOf) {
    std::size_t tied = 0;
    for (Range const& range : ranges) {
        tied += range.end - range.begin;
    }
    if (tied > entries_.size() / 8) {
        setKeysInOrder(ranges, column, keyOf);
        return;
    }
    for (Range const& range : ranges) {
        for (std::size_t k = range.begin; k < range.end; ++k) {
            entries_[k].key = keyOf(cellAt(column, k), range.alike) ^ flip_;
        }
    }
}

/// The same for many rows. Reads the column in the order given, in which its cells and texts most likely
/// lie in memory: to jump about in them takes up to twice as long.
template <typename KeyOf>
void SortKeys::setKeysInOrder(std::vector<Range> const& ranges, ColumnView const& column,
                              KeyOf const& keyOf) {
    constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
    Rows positions(rows_.size(), none);
    for (Range const& range : ranges) {
        for (std::size_t k = range.begin; k < range.end; ++k) {
            positions[entries_[k].row] = k;
            entries_[k].key = range.alike;
        }
    }
    for (std::size_t place = 0; place < rows_.size(); ++place) {
        if (positions[place] != none) {
            Key& each = entries_[positions[place]].key;
            each = keyOf(column[rows_[place]], each) ^ flip_;
        }
    }
}

} // namespace QX
