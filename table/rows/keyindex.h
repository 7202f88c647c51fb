#pragma once

#include "memory/blocks.h"
#include "table/rows/matchkeys.h"
#include "table/rows/rowindex.h"

#include <cstddef>

namespace QX {

/// Numbers the keys of cells, each in constant time, or a logarithm for keys crafted against the hash.
/// The texts of the keys must outlive it.
class KeyIndex {
public:
    static constexpr std::size_t none = RowIndex::none;

    /// Makes room for so many keys.
    explicit KeyIndex(std::size_t keys) : hash_(MatchHash::ofProcess()), index_(keys) {
        keys_.reserve(keys);
    }

    /// The hash to make keys with, until more are added.
    MatchHash const& hash() const { return hash_; }
    std::size_t size() const { return keys_.size(); }

    /// The number of a key: that of an equal one added before, or else the number of those.
    std::size_t add(MatchKey const& made) {
        MatchKey key = made;
        if (isRefiled_) {
            key.rehash(hash_); // it may be made with the hash before
        }
        std::size_t const next = keys_.size();
        std::size_t const number = index_.insert(KeyAmong{key.hash, key, keys_}, next);
        if (number == next || number == none) {
            keys_.push_back(key);
        }
        if (number == none) {
            refile();
        }
        return number == none ? next : number;
    }
    /// The number of a key, or `none`.
    std::size_t find(MatchKey const& key) const { return index_.find(KeyAmong{key.hash, key, keys_}); }

private:
    using Keys = BlockVector<MatchKey>;

    struct KeyAmong {
        bool equals(std::size_t number) const { return key == keys[number]; }
        int compare(std::size_t number) const { return key.compare(keys[number]); }

        std::uint64_t hash;
        MatchKey const& key;
        Keys const& keys;
    };

    void refile();

    MatchHash hash_;
    bool isRefiled_ = false;
    RowIndex index_;
    Keys keys_; // by their numbers
};

} // namespace QX
