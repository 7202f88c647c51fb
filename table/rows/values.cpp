#include "qx/values.h"

#include "table/rows/samevalue.h"

#include <cmath>

namespace QX {

namespace {

/// What comes before what, whatever the values are.
int rankOf(Cell const& cell) {
    if (cell.empty()) {
        return 0;
    }
    switch (cell.isA()) {
    case Cell::EmptyCell:
        return 0;
    case Cell::NumericCell:
        return std::isnan(numberOf(cell).get()) ? 2 : 1;
    case Cell::StringCell:
        return 3;
    case Cell::TableCell:
        return 4;
    case Cell::ErrorCell:
        return 5;
    }
    return 0;
}

} // namespace

bool sameValue(Cell const& left, Cell const& right) noexcept {
    return isSameValue(left, right);
}

int orderValues(Cell const& left, Cell const& right) noexcept {
    int const rank = rankOf(left);
    if (int const other = rankOf(right); rank != other) {
        return rank - other;
    }
    if (left.empty()) {
        return 0;
    }
    if (left.isA() == Cell::StringCell) {
        return textOf(left).compare(textOf(right));
    }
    if (left.isA() == Cell::NumericCell) {
        double const a = numberOf(left).get();
        double const b = numberOf(right).get();
        return a < b ? -1 : a > b ? 1 : 0; // two NaN are tied
    }
    return 0;
}

double numberIn(Cell const& cell) noexcept {
    return cell.isA() == Cell::NumericCell ? numberOf(cell).get() : 0;
}

std::string_view textIn(Cell const& cell) noexcept {
    return cell.isA() == Cell::StringCell ? textOf(cell) : std::string_view();
}

} // namespace QX
