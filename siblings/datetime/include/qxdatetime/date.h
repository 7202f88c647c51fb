#pragma once

#include "qxbase/str.h"
#include "qxdatetime/export.h"

#include <climits>

namespace QX {

/// A calendar day: the count of days since 1970-01-01 in the proleptic Gregorian calendar.
///
/// Valid from 0001-01-01 to 9999-12-31; every other count is kept but is not a real date.
///
/// A format is a text in which runs of letters stand for fields: "yyyy" year, "mm" month number, "mmm"
/// English month name of three letters (Jan to Dec), "dd" day; every other character stands for itself.
class QXDATETIME_API Date {
public:
    /// Makes a date that is not valid.
    Date() = default;
    /// Makes the date that lies `days` days after 1970-01-01, before it when negative.
    Date(int days) : days_(days) {}
    /// Reads a date in the given format; an empty format means YYYY-MM-DD.
    ///
    /// Every field must have its full number of digits and nothing may stand around them. A month or day
    /// that the format lacks is the first; a format without a year gives no valid date; of a field that
    /// it has twice the last one counts. A text that does not read as a real calendar day gives a date
    /// that is not valid.
    Date(Str const& text, Str const& format);

    /// True for a real date from 0001-01-01 to 9999-12-31.
    bool isValid() const;
    /// The days since 1970-01-01; the smallest int for a date that could not be read.
    int days() const { return days_; }
    /// The date in the given format, an empty one meaning YYYY-MM-DD; empty when the date is not valid.
    Str const getDate(Str const& format) const;

private:
    int days_ = INT_MIN;
};

} // namespace QX
