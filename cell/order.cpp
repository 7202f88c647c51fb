// Cell's order, which is no strict weak one.

#include "cell/dates.h"
#include "cell/nested.h"
#include "cell/relation.h"

namespace QX {

namespace {

bool textBefore(Cell const& left, Cell const& right, bool /*ignoreCase*/) {
    return textOf(left) < textOf(right);
}

bool isLess(Cell const& left, Cell const& right, bool /*ignoreCase*/) {
    return numberOf(left).get() < numberOf(right).get();
}

/// A text is before a number when it is a date and the number's date is earlier.
bool isLaterDay(Cell const& text, Cell const& number, bool /*ignoreCase*/) {
    Date const date = dateOf(textOf(text));
    return date.isValid() && dateOf(numberOf(number).get()).days() < date.days();
}

/// A number is before a text that is no date or an earlier one.
bool isNoLaterDay(Cell const& number, Cell const& text, bool /*ignoreCase*/) {
    Date const date = dateOf(textOf(text));
    return !date.isValid() || date.days() < dateOf(numberOf(number).get()).days();
}

bool isLarger(Cell const& left, Cell const& right, bool /*ignoreCase*/) {
    return NestedTable::isSmaller(*nestedIn(right), *nestedIn(left));
}

constexpr Matrix order{{{
    // right:   empty    string        number        table      error
    /* empty */ {always, always, always, always, always},
    /* string */ {always, textBefore, isLaterDay, always, never},
    /* number */ {never, isNoLaterDay, isLess, never, never},
    /* table */ {never, never, never, isLarger, never},
    /* error */ {never, never, never, never, never},
}}};
static_assert(order.isComplete());

} // namespace

bool Cell::isBefore(Cell const& other) const {
    return order.holds(*this, other, false);
}

} // namespace QX
