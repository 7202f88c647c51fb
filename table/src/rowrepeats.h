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

    /// The rows from 1 on that are the first of their hash; nothing when a later one differs from that
    /// one by `same` in a column.
    template <typename Same>
    std::optional<Rows> drop(RowHashes const& hashes, Same const& same) {
        constexpr std::size_t many = 4096;
        RowSet kept(hashes.size());
        Rows rows;
        for (std::size_t j = 0; j < hashes.size(); ++j) {
            std::size_t const first = kept.insert(j, hashes[j], [](std::size_t) { return true; });
            if (first != j) {
                repeats_.push_back({first, j});
            } else if (j > 0) {
                rows.push_back(j);
            }
            if (repeats_.size() == many) {
                if (!areEqual(same)) {
                    return std::nullopt;
                }
                repeats_.clear();
            }
        }
        return areEqual(same) ? std::optional(std::move(rows)) : std::nullopt;
    }

private:
    struct Repeat {
        std::size_t first; // of its hash
        std::size_t row;
    };

    template <typename Same>
    bool areEqual(Same const& same) const {
        return std::all_of(columns_.begin(), columns_.end(), [&](Column const& column) {
            return std::all_of(repeats_.begin(), repeats_.end(), [&](Repeat const& each) {
                return same(column[each.first], column[each.row]);
            });
        });
    }

    std::vector<Column> const& columns_;
    std::vector<Repeat> repeats_; // that are still to be looked at
};

/// The rows from 1 on that equal no earlier row that was kept, row 0 included. Two rows are equal when
/// `same(earlier, later)` holds of their cells in every column, or else `equal(earlier, later)` of them.
template <typename Same, typename Equal>
Rows firstRows(RowHashes const& hashes, std::vector<Column> const& columns, Same const& same,
               Equal const& equal) {
    if (fastPaths) {
        if (std::optional<Rows> rows = RepeatedRows(columns).drop(hashes, same)) {
            return std::move(*rows);
        }
    }
    RowSet kept(hashes.size());
    Rows rows;
    for (std::size_t j = 0; j < hashes.size(); ++j) {
        auto const repeats = [&](std::size_t earlier) {
            return std::all_of(columns.begin(), columns.end(),
                               [&](Column const& column) { return same(column[earlier], column[j]); }) ||
                   equal(earlier, j);
        };
        if (kept.insert(j, hashes[j], repeats) == j && j > 0) {
            rows.push_back(j);
        }
    }
    return rows;
}

} // namespace QX
