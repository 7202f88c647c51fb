#pragma once

#include "cell/number.h"
#include "qx/cell.h"
#include "qxdatetime/date.h"

#include <string_view>

namespace QX {

/// The date that a text is; not valid when it is none.
Date dateOf(std::string_view text);

/// The date that lies so many days after 1970-01-01, valid or not.
inline Date dateOf(double days) {
    return Date(truncated(days));
}

/// True for a string cell whose text is a date, by which it may equal a number.
bool isDate(Cell const& cell);

} // namespace QX
