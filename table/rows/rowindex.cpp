#include "table/rows/rowindex.h"

namespace QX {

void RowIndex::grow() {
    BlockVector<Slot> const former =
        std::exchange(slots_, BlockVector<Slot>(2 * slots_.size(), {0, none}));
    std::size_t const last = slots_.size() - 1;
    for (Slot const& each : former) {
        if (each.number == none) {
            continue;
        }
        std::size_t slot = each.hash & last;
        std::size_t n = 0;
        while (slots_[slot].number != none && ++n < longestProbe) {
            slot = (slot + 1) & last;
        }
        if (n == longestProbe) {
            full_ = true;
            return;
        }
        slots_[slot] = each;
    }
}

void RowIndex::hangLast(bool left) {
    std::size_t below = nodes_.size() - 1;
    for (std::size_t k = path_.size(); k-- > 0;) {
        std::size_t const n = path_[k];
        bool const isLeft = k + 1 == path_.size() ? left : nodes_[n].left == path_[k + 1];
        (isLeft ? nodes_[n].left : nodes_[n].right) = below;
        below = split(skewed(n));
    }
    root_ = below;
}

/// Turns a left child of the node's own level into its parent.
std::size_t RowIndex::skewed(std::size_t n) {
    std::size_t const left = nodes_[n].left;
    if (left == none || nodes_[left].level != nodes_[n].level) {
        return n;
    }
    nodes_[n].left = std::exchange(nodes_[left].right, n);
    return left;
}

/// Lifts the middle one of three nodes of one level.
std::size_t RowIndex::split(std::size_t n) {
    std::size_t const right = nodes_[n].right;
    if (right == none || nodes_[right].right == none ||
        nodes_[nodes_[right].right].level != nodes_[n].level) {
        return n;
    }
    nodes_[n].right = std::exchange(nodes_[right].left, n);
    ++nodes_[right].level;
    return right;
}

} // namespace QX
