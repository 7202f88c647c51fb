#pragma once

#include "table/rows/columnprofile.h"
#include "table/rows/sortentry.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace QX {

/// Sorts rows by one column after the other, each time only the rows that are still tied. The cells are
/// turned into keys of 64 bits, which are sorted in their place: a number into its place among all
/// doubles, a text into some of its bytes at a time.
///
/// Empty cells come before all others, numbers before texts. Linear in the bytes of the texts that tell
/// rows apart, else n log n.
class SortKeys {
public:
    /// Takes the rows in the order given, and keeps a reference to them.
    SortKeys(Rows const& rows, bool ascending);

    /// Sorts by a column of empty cells, numbers and texts.
    void sortBy(ColumnView const& column, ColumnProfile const& profile);

    /// The rows in order.
    Rows rows() const;
    /// The places of the rows in the order given, in the new order.
    Rows places() const;

private:
    struct Range {
        std::size_t begin;
        std::size_t end;
        std::size_t alike; // so many bytes all texts begin with
    };

    bool goesOn(ColumnView const& column, Range& run, bool again) const;
    Cell const& cellAt(ColumnView const& column, std::size_t k) const {
        return column[rows_[entries_[k].row]];
    }
    template <typename KeyOf, typename Tie>
    void refine(ColumnView const& column, KeyOf const& keyOf, Tie const& tie);
    template <typename KeyOf>
    void setKeys(std::vector<Range> const& ranges, ColumnView const& column, KeyOf const& keyOf);
    template <typename KeyOf>
    void setKeysInOrder(std::vector<Range> const& ranges, ColumnView const& column, KeyOf const& keyOf);

    Rows const& rows_;
    std::uint64_t flip_; // turns the keys round to sort in descending order
    SortEntries entries_;
    std::vector<Range> tied_;
};

} // namespace QX
