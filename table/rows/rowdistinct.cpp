#include "table/rows/rowdistinct.h"

#include "cell/equality.h"
#include "memory/fastpaths.h"
#include "table/rows/columnprofile.h"
#include "table/rows/linkedcells.h"
#include "table/rows/rowcontent.h"
#include "table/rows/rowindex.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace QX {

namespace {

std::size_t heightOf(std::vector<ColumnView> const& columns) {
    return columns.empty() ? 0 : columns.front().items();
}

bool equalRows(std::vector<ColumnView> const& columns, std::size_t earlier, std::size_t later) {
    return std::all_of(columns.begin(), columns.end(), [&](ColumnView const& column) {
        return equalCells(column[earlier], column[later], false);
    });
}

/// The columns by whether a cell may equal cells of other content.
struct SplitColumns {
    std::vector<ColumnView> plain;
    std::vector<ColumnView> linked;
    std::vector<bool> dated; // of the linked ones

    explicit SplitColumns(std::vector<ColumnView> const& columns) {
        for (ColumnView const& column : columns) {
            ColumnProfile const profile(column);
            if (profile.equalOnlyToSame()) {
                plain.push_back(column);
            } else {
                linked.push_back(column);
                dated.push_back(profile.datesBesideNumbers);
            }
        }
    }
};

/// The rows that equal neither the names row nor an earlier row kept; nothing when an index got full.
std::optional<Rows> distinctByHash(std::vector<ColumnView> const& columns, SplitColumns const& split,
                                   MatchHash const& hash, RowIndex::Kind kind) {
    std::size_t const height = heightOf(columns);
    RowHashes const hashes = hashRows(split.plain, height, hash);
    LinkedCells linked(split.linked, split.dated, hash, kind);
    RowIndex index(height, kind);
    Rows rows;
    for (std::size_t j = 1; j < height; ++j) {
        if (equalRows(columns, 0, j)) {
            continue; // unfiled: a valid number of the value of one that is not need not equal the name
        }
        std::size_t const first = index.insert(RowContent{hashes[j], split.plain, j}, j);
        if (index.full() || linked.full()) {
            return std::nullopt;
        }
        if (split.linked.empty() ? first != j : linked.has(first, j)) {
            continue;
        }
        rows.push_back(j);
        if (!split.linked.empty()) {
            linked.add(first, j);
        }
    }
    return rows;
}

} // namespace

Rows distinctRows(std::vector<ColumnView> const& columns) {
    if (!fastPaths) {
        return distinctByComparing(columns);
    }
    SplitColumns const split(columns);
    return withRowIndex([&](MatchHash const& hash, RowIndex::Kind kind) {
        return distinctByHash(columns, split, hash, kind);
    });
}

Rows distinctByComparing(std::vector<ColumnView> const& columns) {
    Rows kept{0};
    for (std::size_t j = 1; j < heightOf(columns); ++j) {
        if (std::none_of(kept.begin(), kept.end(),
                         [&](std::size_t earlier) { return equalRows(columns, earlier, j); })) {
            kept.push_back(j);
        }
    }
    kept.erase(kept.begin());
    return kept;
}

} // namespace QX
