#include "table/rows/linkedcells.h"

#include "cell/equality.h"

#include <algorithm>
#include <array>
#include <utility>

namespace QX {

namespace {

constexpr std::size_t mostLevels = 16;
constexpr std::size_t mostDated = 4; // where a number is filed twice, at each level

} // namespace

LinkedCells::LinkedCells(std::vector<ColumnView> const& columns, std::vector<bool> const& dated,
                         MatchHash const& hash, RowIndex::Kind kind)
    : hash_(hash), rows_(columns.empty() ? 0 : columns.front().items()), index_(0, kind) {
    std::size_t numberOfDated = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        bool const hasLevel = levels_.size() < mostLevels && (!dated[i] || ++numberOfDated <= mostDated);
        if (!hasLevel) {
            rest_.push_back(columns[i]);
            continue;
        }
        KeyIndex& keys =
            levels_.emplace_back(Level{columns[i], {dated[i], dated[i]}, KeyIndex(rows_)}).keys;
        for (std::size_t row = 1; row < rows_; ++row) {
            forEachKeyOf(keys.hash(), columns[i][row], levels_.back().dates,
                         [&](MatchKey const& key) { keys.add(key); });
        }
    }
}

bool LinkedCells::has(std::size_t level, std::size_t node, std::size_t row) const {
    std::array<std::size_t, 6> edges{};
    std::size_t count = 0;
    Level const& at = levels_[level];
    forEachKeyFor(at.keys.hash(), at.column[row], {}, [&](MatchKey const& sought) {
        std::size_t const key = at.keys.find(sought);
        std::size_t const edge =
            key == KeyIndex::none ? RowIndex::none : index_.find(edgeKey(node, key));
        if (edge != RowIndex::none) {
            edges[count++] = edge;
        }
    });
    return std::any_of(edges.begin(), edges.begin() + count, [&](std::size_t edge) {
        return level + 1 < levels_.size() ? has(level + 1, rows_ + edge, row)
                                          : hasBelow(edges_[edge], row);
    });
}

/// True when a row below an edge of the lowest level equals `row` in the columns without a level.
bool LinkedCells::hasBelow(Edge const& edge, std::size_t row) const {
    for (std::size_t k = edge.lastLeaf; k != RowIndex::none; k = leaves_[k].former) {
        if (std::all_of(rest_.begin(), rest_.end(), [&](ColumnView const& column) {
                return equalCells(column[leaves_[k].row], column[row], false);
            })) {
            return true;
        }
    }
    return false;
}

void LinkedCells::add(std::size_t level, std::size_t node, std::size_t row) {
    Level const& at = levels_[level];
    forEachKeyOf(at.keys.hash(), at.column[row], at.dates, [&](MatchKey const& filed) {
        std::size_t const key = at.keys.find(filed);
        std::size_t const next = edges_.size();
        std::size_t const edge = index_.insert(edgeKey(node, key), next);
        if (edge == RowIndex::none) {
            return;
        }
        if (edge == next) {
            edges_.push_back({node, key, RowIndex::none});
        }
        if (level + 1 < levels_.size()) {
            add(level + 1, rows_ + edge, row);
        } else {
            leaves_.push_back({row, std::exchange(edges_[edge].lastLeaf, leaves_.size())});
        }
    });
}

} // namespace QX
