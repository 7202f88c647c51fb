#pragma once

#include "cell/view.h"

#include <array>

namespace QX {

/// Tells whether two cells of two given kinds are related.
using Relation = bool (*)(Cell const& left, Cell const& right, bool ignoreCase);

inline bool always(Cell const& /*left*/, Cell const& /*right*/, bool /*ignoreCase*/) {
    return true;
}

inline bool never(Cell const& /*left*/, Cell const& /*right*/, bool /*ignoreCase*/) {
    return false;
}

/// A relation between all cells: a row for each kind of the left one, a column for each of the right one.
struct Matrix {
    std::array<std::array<Relation, kinds>, kinds> relations;

    bool holds(Cell const& left, Cell const& right, bool ignoreCase) const {
        return relations[left.isA()][right.isA()](left, right, ignoreCase);
    }
    /// True when no pair of kinds was forgotten.
    constexpr bool isComplete() const {
        for (auto const& row : relations) {
            for (Relation const relation : row) {
                if (relation == nullptr) {
                    return false;
                }
            }
        }
        return true;
    }
};

} // namespace QX
