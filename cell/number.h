#pragma once

#include "qxbase/analyticdouble.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace QX {

/// `number` as a valid one.
inline AnalyticDouble validNumber(double number) {
    AnalyticDouble valid;
    valid.value = number;
    valid.valid = true;
    return valid;
}

/// `number` truncated toward zero; the smallest int for NaN and for what no int can hold.
inline int truncated(double number) {
    constexpr int smallest = std::numeric_limits<int>::min();
    bool const fits = number > smallest && number < -static_cast<double>(smallest);
    return fits ? static_cast<int>(number) : smallest;
}

/// True when truncation moves `number` by no more than one machine epsilon relative to its magnitude,
/// and by no more than one epsilon below 1; so true for infinities, which no subtraction can tell apart.
inline bool isWhole(double number) {
    double const whole = truncated(number);
    double const magnitude = std::max(1.0, std::max(std::fabs(number), std::fabs(whole)));
    return magnitude * std::numeric_limits<double>::epsilon() >= std::fabs(whole - number);
}

} // namespace QX
