#pragma once

#include "table/model/columnview.h"
#include "table/rows/matchhash.h"

#include <cstdint>
#include <vector>

namespace QX {

/// A hash for each row; rows of equal cells have one hash.
using RowHashes = BlockVector<std::uint64_t>;

/// Hashes rows by columns in which only cells of the same content are equal (see
/// ColumnProfile::equalOnlyToSame).
RowHashes hashRows(std::vector<ColumnView> const& columns, std::size_t rows, MatchHash const& by);

/// A row by such columns, to look up in a RowIndex of rows.
struct RowContent {
    bool equals(std::size_t earlier) const;
    int compare(std::size_t earlier) const;

    std::uint64_t hash;
    std::vector<ColumnView> const& columns;
    std::size_t row;
};

/// Negative, zero or positive, in a total order of contents; both zeros are one.
int compareContents(Cell const& left, Cell const& right);

} // namespace QX
