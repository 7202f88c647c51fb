#include "cell/equality.h"

#include "base/strview.h"
#include "cell/dates.h"
#include "cell/relation.h"

namespace QX {

namespace {

bool isEmptyRight(Cell const& /*left*/, Cell const& right, bool /*ignoreCase*/) {
    return right.empty();
}

bool isEmptyLeft(Cell const& left, Cell const& /*right*/, bool /*ignoreCase*/) {
    return left.empty();
}

bool sameText(Cell const& left, Cell const& right, bool ignoreCase) {
    return equalTexts(textOf(left), textOf(right), ignoreCase);
}

bool nearNumbers(Cell const& left, Cell const& right, bool /*ignoreCase*/) {
    return Detail::equalNumbers(numberOf(left).get(), numberOf(right).get());
}

bool sameTable(Cell const& left, Cell const& right, bool /*ignoreCase*/) {
    return nestedIn(left) == nestedIn(right);
}

bool isDayOf(Cell const& text, Cell const& number, bool /*ignoreCase*/) {
    Date const date = dateOf(textOf(text));
    return date.isValid() && date.days() == dateOf(numberOf(number).get()).days();
}

bool isDayIn(Cell const& number, Cell const& text, bool ignoreCase) {
    return isDayOf(text, number, ignoreCase);
}

constexpr Matrix equality{{{
    // right:   empty    string        number        table      error
    /* empty */ {always, isEmptyRight, isEmptyRight, never, never},
    /* string */ {never, sameText, isDayOf, never, isEmptyLeft},
    /* number */ {never, isDayIn, nearNumbers, never, never},
    /* table */ {never, never, never, sameTable, never},
    /* error */ {never, never, never, never, always},
}}};
static_assert(equality.isComplete());

} // namespace

bool equalByKind(Cell const& left, Cell const& right, bool ignoreCase) {
    return equality.holds(left, right, ignoreCase);
}

bool Cell::equals(Cell const& other, bool flag) const {
    return equalCells(*this, other, flag);
}

} // namespace QX
