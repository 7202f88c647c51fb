#pragma once

#include "qx/cell.h"
#include "table/model/name.h"
#include "table/rows/matchkeys.h"
#include "table/rows/rowindex.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

namespace QX {

/// Finds the first of numbered cells that equals a given one: indices by their names, each in constant
/// time, or a logarithm for names crafted against the hash.
class NameIndex {
public:
    static constexpr std::size_t none = RowIndex::none;

    NameIndex() : hash_(MatchHash::ofProcess()), index_(0) {}

    /// Files number i, which need not be the highest, under a name.
    void add(std::size_t i, Cell const& name);
    /// Forgets number i, which is filed under a name.
    void remove(std::size_t i, Cell const& name);
    /// The lowest number of which `filed.compare(name, false)` holds and which `skip(i)` lets pass, or
    /// `none`.
    template <typename Skip>
    std::size_t find(Name const& name, Skip const& skip) const {
        std::size_t lowest = none;
        name.forEachKey(hash_, [&](MatchKey const& key) {
            std::size_t const k = index_.find(NameKey{key.hash, key, filed_});
            if (k != RowIndex::none) {
                lowest = std::min(lowest, first(k, skip));
            }
        });
        return lowest;
    }

private:
    /// The numbers filed under one key.
    struct Filed {
        MatchKey::Kind kind;
        std::uint64_t word;
        Cell text; // of a key that is a text
        std::size_t lowest;
    };
    struct NameKey {
        bool equals(std::size_t k) const { return compare(k) == 0; }
        int compare(std::size_t k) const;

        std::uint64_t hash;
        MatchKey const& key;
        std::vector<Filed> const& filed;
    };

    template <typename Skip>
    std::size_t first(std::size_t k, Skip const& skip) const {
        std::size_t lowest = filed_[k].lowest;
        auto other = others_.lower_bound({k, 0});
        while (lowest != none && skip(lowest)) {
            bool const more = other != others_.end() && other->first == k;
            lowest = more ? (other++)->second : none;
        }
        return lowest;
    }
    /// The place of a key in filed_, new if need be.
    std::size_t placeOf(MatchKey const& key, Cell const& name);
    void refile();

    MatchHash hash_;
    bool isRefiled_ = false;
    RowIndex index_; // of the keys by their places in filed_
    std::vector<Filed> filed_;
    std::set<std::pair<std::size_t, std::size_t>> others_; // key and number, of all but the lowest
};

} // namespace QX
