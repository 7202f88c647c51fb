#pragma once

#include "qxbase/str.h"

#include <cstdio>

namespace QX {

/// A day of a calendar whose years have 12 months of 31 days: what a day is, is the library's own affair.
class Date {
public:
    Date() {}
    Date(int days) : days_(days) {}
    Date(Str const& text, Str const& /*format: QX gives none*/) {
        int year = 0;
        int month = 0;
        int day = 0;
        char more = 0;
        bool const read = std::sscanf(text.get(), "%4d-%2d-%2d%c", &year, &month, &day, &more) == 3;
        if (read && month >= 1 && month <= 12 && day >= 1 && day <= 31) {
            days_ = (year * 12 + month - 1) * 31 + day - 1;
        }
    }

    bool isValid() const { return days_ >= 0 && days_ < 9999 * 372; }
    int days() const { return days_; }
    Str const getDate(Str const& format) const {
        char text[40] = "";
        char const* const form =
            format == Str("dd:mmm:yyyy") ? "%3$02d:M%2$02d:%1$04d" : "%1$04d-%2$02d-%3$02d";
        if (isValid()) {
            std::snprintf(text, sizeof text, form, days_ / 372, days_ / 31 % 12 + 1, days_ % 31 + 1);
        }
        return Str(text);
    }

private:
    int days_ = -1;
};

} // namespace QX
