#pragma once

#include "qxbase/status.h"
#include "qxbase/str.h"
#include "qxdatetime/date.h"
#include "qxdatetime/export.h"

namespace QX {

/// A date with a time of day, to the second.
class QXDATETIME_API DateTime : public Date {
public:
    /// Makes midnight of a date that is not valid.
    DateTime() = default;
    virtual ~DateTime();
    /// Copies date and time.
    DateTime(DateTime const&) = default;
    /// Copies date and time.
    DateTime& operator=(DateTime const&) = default;

    /// Sets this to the current local date and time; a leap second counts as the second before it.
    ///
    /// Returns Ok, or Error "Local time not available" (this is then unchanged).
    Status now();
    /// The time in the given format: "hh" hours from 00 to 23, "mm" minutes, "ss" seconds; every other
    /// character stands for itself. An empty format means hh:mm:ss.
    Str const getTime(Str const& format) const;

private:
    int seconds_ = 0; // since midnight
};

} // namespace QX
