// Groups and matches of rows: each key is hashed column by column, then rows of one hash are compared.

#include "qx/rows.h"
#include "table/model/bodies.h"
#include "table/model/raise.h"
#include "table/rows/rowindex.h"
#include "table/rows/samevalue.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace QX {

namespace {

/// The key columns of a table with a hash for each row.
class KeyedRows {
public:
    KeyedRows(Table const& table, Positions const& keys, MatchHash const& hash)
        : body_(heldBody(table)), items_(body_->items()), hashes_(items_) {
        for (std::size_t const key : keys) {
            columns_.push_back(columnOf(key));
            for (std::size_t j = 1; j < items_; ++j) {
                hashes_[j] = hashValue(hash, columns_.back()[j], hashes_[j]);
            }
        }
    }

    std::size_t items() const { return items_; }

    /// A row to look up among rows of the same or another table.
    struct Key {
        bool equals(std::size_t other) const {
            return std::equal(own.columns_.begin(), own.columns_.end(), others.columns_.begin(),
                              [&](ColumnView const& one, ColumnView const& its) {
                                  return isSameValue(one[row], its[other]);
                              });
        }
        int compare(std::size_t other) const {
            for (std::size_t k = 0; k < own.columns_.size(); ++k) {
                int const order = compareSameValues(own.columns_[k][row], others.columns_[k][other]);
                if (order != 0) {
                    return order;
                }
            }
            return 0;
        }

        std::uint64_t hash;
        KeyedRows const& own;
        std::size_t row;
        KeyedRows const& others;
    };
    Key key(std::size_t row, KeyedRows const& others) const {
        return {hashes_[row], *this, row, others};
    }

private:
    ColumnView columnOf(std::size_t index) const {
        Cell const& beyond = TableImplementation::sharedEmptyCell();
        return index < body_->indices() ? body_->view(index, items_) : ColumnView({}, items_, beyond);
    }

    Ptr<TableImplementation> body_;
    std::size_t items_;
    std::vector<ColumnView> columns_;
    BlockVector<std::uint64_t> hashes_;
};

} // namespace

Positions groupRows(Table const& table, Positions const& keys) {
    return withRowIndex([&](MatchHash const& hash, RowIndex::Kind kind) -> std::optional<Positions> {
        KeyedRows const rows(table, keys, hash);
        RowIndex first(rows.items(), kind);
        Positions groups(rows.items());
        for (std::size_t j = 1; j < rows.items(); ++j) {
            groups[j] = first.insert(rows.key(j, rows), j);
        }
        return first.full() ? std::nullopt : std::optional(std::move(groups));
    });
}

RowMatches matchRows(Table const& left, Positions const& leftKeys, Table const& right,
                     Positions const& rightKeys) {
    if (leftKeys.size() != rightKeys.size()) {
        raise("Left and right keys differ in number");
    }
    return withRowIndex([&](MatchHash const& hash, RowIndex::Kind kind) -> std::optional<RowMatches> {
        KeyedRows const rows(left, leftKeys, hash);
        KeyedRows const others(right, rightKeys, hash);
        RowMatches found{Positions(rows.items(), Table::npos), Positions(others.items(), Table::npos)};
        RowIndex first(others.items(), kind);
        Positions last(others.items()); // of the rows equal to a first one
        for (std::size_t j = 1; j < others.items(); ++j) {
            std::size_t const group = first.insert(others.key(j, others), j);
            if (first.full()) {
                return std::nullopt;
            }
            if (group != j) {
                found.next[last[group]] = j;
            }
            last[group] = j;
        }
        for (std::size_t j = 1; j < rows.items(); ++j) {
            found.first[j] = first.find(rows.key(j, others));
        }
        return found;
    });
}

} // namespace QX
