#pragma once

#include "base/blocks.h"
#include "base/fastpaths.h"
#include "table/src/column.h"
#include "table/src/rowset.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace QX {

/// A hash for each row; rows that are equal have one hash.
using RowHashes = BlockVector<std::uint64_t>;

/// Finds repeated rows by taking rows of one hash for equal, and looks then whether they are: some
/// thousand rows at a time, column by column, so that many cells are fetched from memory at once.
class RepeatedRows {
public:
    explicit RepeatedRows(std::vector<Column> const& columns) : columns_(columns) {}

    /// The rows from 1 on that are the first of their hash; nothing when a later one does not equal that
    /// one by `equalCells` in every column.
    template <typename EqualCells>
    std::optional<Rows> drop(RowHashes const& hashes, EqualCells const& equalCells) {
        constexpr std::size_t ahead = 16; // rows are added in the time that a place takes to be fetched
        constexpr std::size_t many = 4096;
        RowSet kept(hashes.size());
        Rows rows;
        for (std::size_t j = 0; j < hashes.size(); ++j) {
            kept.fetch(hashes[std::min(j + ahead, hashes.size() - 1)]);
            std::size_t const first = kept.insert(j, hashes[j], [](std::size_t) { return true; });
            if (first != j) {
                repeats_.push_back({first, j});
            } else if (j > 0) {
                rows.push_back(j);
            }
            if (repeats_.size() == many && !areEqual(equalCells)) {
                return std::nullopt;
            }
        }
        return areEqual(equalCells) ? std::optional(std::move(rows)) : std::nullopt;
    }

private:
    struct Repeat {
        std::size_t first; // of its hash
        std::size_t row;
    };

    /// Looks at the repeats found since it was called last.
    template <typename EqualCells>
    bool areEqual(EqualCells const& equalCells) {
        std::vector<Repeat> const repeats = std::exchange(repeats_, {});
        return std::all_of(columns_.begin(), columns_.end(), [&](Column const& column) {
            return std::all_of(repeats.begin(), repeats.end(), [&](Repeat const& each) {
                return equalCells(column[each.first], column[each.row]);
            });
        });
    }

    std::vector<Column> const& columns_;
    std::vector<Repeat> repeats_;
};

/// The rows from 1 on that equal no earlier row that was kept, row 0 included: `equalRows(earlier,
/// later)` tells whether two rows are. Rows whose cells are equal by `equalCells(earlier, later)` in
/// every column must be.
template <typename EqualCells, typename EqualRows>
Rows firstRows(RowHashes const& hashes, std::vector<Column> const& columns, EqualCells const& equalCells,
               EqualRows const& equalRows) {
    if (fastPaths) {
        if (std::optional<Rows> rows = RepeatedRows(columns).drop(hashes, equalCells)) {
            return std::move(*rows);
        }
    }
    RowSet kept(hashes.size());
    Rows rows;
    for (std::size_t j = 0; j < hashes.size(); ++j) {
        auto const equal = [&](std::size_t earlier) { return equalRows(earlier, j); };
        if (kept.insert(j, hashes[j], equal) == j && j > 0) {
            rows.push_back(j);
        }
    }
    return rows;
}

} // namespace QX
