#pragma once

#include "table/model/columnview.h"

#include <string_view>

namespace QX {

/// What one scan of some rows of a column tells.
class ColumnKinds {
public:
    /// Of all rows but the names row.
    explicit ColumnKinds(ColumnView const& column);
    ColumnKinds(ColumnView const& column, Rows const& rows);

    bool empties = false;    ///< cells without a value
    bool emptyTexts = false; ///< texts without characters
    bool texts = false;      ///< other texts
    bool numbers = false;    ///< valid numbers
    bool notValid = false;   ///< numbers that are not
    bool nans = false;
    bool tables = false;
    bool errors = false;
    bool exactIntegers = true; ///< all numbers are integers that are adjacent to no other
    std::string_view common;   ///< what all texts begin with

    /// True when cells of more than one kind are to be put in order, empty ones being a kind.
    bool mixesKinds() const {
        return ((empties || emptyTexts || notValid) && (numbers || texts)) || (numbers && texts);
    }

private:
    void add(Cell const& cell);
    void addNumber(double number);
    void addText(std::string_view text);
};

/// The same, and what it takes a further look to tell about the order and the equality of the cells.
class ColumnProfile : public ColumnKinds {
public:
    explicit ColumnProfile(ColumnView const& column);
    ColumnProfile(ColumnView const& column, Rows const& rows);

    bool datesBesideNumbers = false; ///< dates, each of which equals all numbers of its day
    bool adjacentDoubles = false;    ///< numbers 1 ulp apart, which are equal

    /// True when cells equal each other only where they have the same content.
    bool equalOnlyToSame() const {
        int const empty = static_cast<int>(empties) + static_cast<int>(emptyTexts) +
                          static_cast<int>(errors) + static_cast<int>(notValid);
        return empty <= 1 && !datesBesideNumbers && !adjacentDoubles;
    }
    /// True when the values have a strict weak order under which those that are equivalent are equal.
    bool totallyOrdered() const {
        return !nans && !tables && !errors && !datesBesideNumbers && !adjacentDoubles;
    }

private:
    template <typename ForEach>
    void lookFurther(ForEach const& forEach);
};

/// What both texts begin with.
std::string_view commonPrefix(std::string_view left, std::string_view right);

} // namespace QX
