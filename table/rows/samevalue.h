#pragma once

#include "cell/view.h"
#include "qx/values.h"
#include "table/rows/matchhash.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>

namespace QX {

/// sameValue() of two cells, whose hashValue() is then the same.
inline bool isSameValue(Cell const& left, Cell const& right) {
    if (left.empty() || right.empty()) {
        return left.empty() && right.empty();
    }
    if (sameBits(left, right)) {
        return true;
    }
    if (left.isA() != right.isA()) {
        return false;
    }
    switch (left.isA()) {
    case Cell::StringCell:
        return textOf(left) == textOf(right);
    case Cell::NumericCell: {
        double const a = numberOf(left).get();
        double const b = numberOf(right).get();
        return a == b || (std::isnan(a) && std::isnan(b));
    }
    case Cell::TableCell:
        return nestedIn(left) == nestedIn(right);
    case Cell::EmptyCell:
    case Cell::ErrorCell:
        return true;
    }
    return false;
}

/// Negative, zero or positive, in a total order in which only same values are tied.
inline int compareSameValues(Cell const& left, Cell const& right) {
    int const order = orderValues(left, right);
    if (order != 0 || left.isA() != Cell::TableCell || nestedIn(left) == nestedIn(right)) {
        return order;
    }
    return std::less<>()(nestedIn(left), nestedIn(right)) ? -1 : 1;
}

/// A hash of a cell's value, mixed with a seed.
inline std::uint64_t hashValue(MatchHash const& by, Cell const& cell, std::uint64_t seed) {
    if (cell.empty()) {
        return by.ofWord(0, seed);
    }
    switch (cell.isA()) {
    case Cell::StringCell:
        return by.ofText(cell, seed);
    case Cell::NumericCell: {
        double const number = numberOf(cell).get();
        // One hash for both zeros, and one for every NaN.
        return by.ofWord(std::isnan(number) ? 2 : std::bit_cast<std::uint64_t>(number + 0.0), seed);
    }
    case Cell::TableCell:
        return by.ofWord(reinterpret_cast<std::uintptr_t>(nestedIn(cell)), seed);
    case Cell::EmptyCell:
    case Cell::ErrorCell:
        break;
    }
    return by.ofWord(1, seed);
}

} // namespace QX
