#pragma once

#include "memory/blocks.h"
#include "table/rows/matchhash.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <utility>
#include <vector>

namespace QX {

/// Finds numbers, such as those of rows, by keys that the caller holds: a hash table with open addressing
/// and linear probing, or a balanced tree.
///
/// A caller passes a key as an object with a hash and two questions about the key of a number in the
/// index: `key.equals(number)` and `key.compare(number)`, which is negative, zero or positive as in a
/// total order of the keys.
///
/// The table never probes further than a fixed number of slots. Where keys take more, which only happens
/// to keys crafted against the hash, it is full, and the caller begins anew with another hash, and in the
/// end with a tree, in which every step takes a logarithm of comparisons whatever the keys are (see
/// withRowIndex()).
class RowIndex {
public:
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
    /// So many slots are probed at most. With half of them taken, one key in 10^10 needs as many.
    static constexpr std::size_t longestProbe = 128;
    /// So many different keys may have one hash of 64 bits.
    static constexpr std::size_t mostOfOneHash = 4;

    enum class Kind { HashTable, Tree };

    /// Makes room for so many keys; a table grows when there are more.
    explicit RowIndex(std::size_t keys, Kind kind = Kind::HashTable) : kind_(kind) {
        if (kind == Kind::HashTable) {
            slots_.assign(std::bit_ceil(2 * keys + 1), Slot{0, none});
        }
    }

    /// True when a key found no place in the table.
    bool full() const { return full_; }

    /// Adds `number` under a key unless there is that key. Returns the number which is then under it, or
    /// `none` when the table is full.
    template <typename Key>
    std::size_t insert(Key const& key, std::size_t number) {
        if (kind_ == Kind::Tree) {
            return insertIntoTree(key, number);
        }
        std::size_t k = 0;
        std::size_t const found = probe(key, k);
        if (found != none) {
            return found;
        }
        full_ = full_ || k == none;
        if (full_) {
            return none;
        }
        slots_[k] = {key.hash, number};
        if (++size_ > slots_.size() / 2) {
            grow();
        }
        return full_ ? none : number;
    }

    /// The number under a key, or `none`.
    template <typename Key>
    std::size_t find(Key const& key) const {
        if (kind_ == Kind::Tree) {
            return findInTree(key);
        }
        std::size_t k = 0;
        return probe(key, k);
    }

private:
    struct Slot {
        std::uint64_t hash;
        std::size_t number; // none: this slot is free
    };
    /// A node of an AA tree: a binary tree kept in balance by levels.
    struct Node {
        std::uint64_t hash;
        std::size_t number;
        std::size_t left;
        std::size_t right;
        int level;
    };

    /// Looks for a key; sets k to the free slot that ends the search, or to `none` when there is none
    /// within reach or too many keys have this hash.
    template <typename Key>
    std::size_t probe(Key const& key, std::size_t& k) const {
        std::size_t const last = slots_.size() - 1;
        std::size_t others = 0;
        std::size_t slot = key.hash & last;
        for (std::size_t n = 0; n < longestProbe; ++n, slot = (slot + 1) & last) {
            Slot const& each = slots_[slot];
            if (each.number == none) {
                k = slot;
                return none;
            }
            if (each.hash == key.hash) {
                if (key.equals(each.number)) {
                    return each.number;
                }
                if (++others == mostOfOneHash) {
                    break;
                }
            }
        }
        k = none;
        return none;
    }
    /// Doubles the table.
    void grow();

    template <typename Key>
    int compare(Key const& key, Node const& node) const {
        return key.hash != node.hash ? (key.hash < node.hash ? -1 : 1) : key.compare(node.number);
    }
    template <typename Key>
    std::size_t findInTree(Key const& key) const {
        std::size_t n = root_;
        while (n != none) {
            int const order = compare(key, nodes_[n]);
            if (order == 0) {
                return nodes_[n].number;
            }
            n = order < 0 ? nodes_[n].left : nodes_[n].right;
        }
        return none;
    }
    template <typename Key>
    std::size_t insertIntoTree(Key const& key, std::size_t number) {
        path_.clear();
        int order = 0;
        for (std::size_t n = root_; n != none; n = order < 0 ? nodes_[n].left : nodes_[n].right) {
            order = compare(key, nodes_[n]);
            if (order == 0) {
                return nodes_[n].number;
            }
            path_.push_back(n);
        }
        nodes_.push_back({key.hash, number, none, none, 1});
        hangLast(order < 0);
        return number;
    }
    /// Hangs the last node below the last of the path, and restores the balance upwards.
    void hangLast(bool left);
    std::size_t skewed(std::size_t n);
    std::size_t split(std::size_t n);

    Kind kind_;
    bool full_ = false;
    std::size_t size_ = 0;
    BlockVector<Slot> slots_; // a key stands in the first free one from that of its hash's low bits on
    std::vector<Node> nodes_;
    std::size_t root_ = none;
    std::vector<std::size_t> path_; // the nodes from the root to where a key belongs
};

/// Does work with a hash table; if that gets full, anew with a fresh hash, for which no data can have been
/// crafted; and if that gets full, too, with a tree. `work(hash, kind)` returns nothing when its index got
/// full.
template <typename Work>
auto withRowIndex(Work const& work) {
    auto done = work(MatchHash::ofProcess(), RowIndex::Kind::HashTable);
    for (auto const kind : {RowIndex::Kind::HashTable, RowIndex::Kind::Tree}) {
        if (!done) {
            done = work(MatchHash::fresh(), kind);
        }
    }
    return std::move(*done);
}

} // namespace QX
