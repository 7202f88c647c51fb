#pragma once

#include "qxbase/status.h"
#include "qxdatetime/date.h"

namespace QX {

/// A clock that stands still.
class DateTime : public Date {
public:
    virtual ~DateTime() {}

    Status now() {
        Date::operator=(Date(Str("2026-02-30"), Str()));
        return Status();
    }
    Str const getTime(Str const& /*format*/) { return Str("12:34:56"); }
};

} // namespace QX
