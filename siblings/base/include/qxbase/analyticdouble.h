#pragma once

#include "qxbase/export.h"

namespace QX {

/// A double with a validity flag that arithmetic carries along.
///
/// The operators give a valid result when both operands are valid and, for "/", the right value is not
/// 0; a result that is not valid holds 0.0.
class QXBASE_API AnalyticDouble {
public:
    /// Makes 0.0, not valid.
    AnalyticDouble() = default;
    /// Makes numerator / denominator; 0.0, not valid, when the denominator is 0.
    AnalyticDouble(int numerator, int denominator);

    /// The number, whatever the validity.
    double get() const { return value; }
    /// The validity flag.
    bool isValid() const { return valid; }

    /// The sum.
    AnalyticDouble operator+(AnalyticDouble const& other) const {
        return result(value + other.value, valid && other.valid);
    }
    /// The difference.
    AnalyticDouble operator-(AnalyticDouble const& other) const {
        return result(value - other.value, valid && other.valid);
    }
    /// The product.
    AnalyticDouble operator*(AnalyticDouble const& other) const {
        return result(value * other.value, valid && other.valid);
    }
    /// The quotient; not valid when `other` is 0.
    AnalyticDouble operator/(AnalyticDouble const& other) const {
        bool const defined = other.value != 0.0;
        return result(defined ? value / other.value : 0.0, valid && other.valid && defined);
    }

    /// The number.
    double value = 0.0;
    /// True when the number means something.
    bool valid = false;

private:
    static AnalyticDouble result(double value, bool valid) {
        AnalyticDouble number;
        number.value = valid ? value : 0.0;
        number.valid = valid;
        return number;
    }
};

} // namespace QX
