#include "qxbase/analyticdouble.h"

namespace QX {

namespace {

AnalyticDouble make(double value, bool valid) {
    AnalyticDouble number;
    if (valid) {
        number.value = value;
        number.valid = true;
    }
    return number;
}

} // namespace

AnalyticDouble::AnalyticDouble(int numerator, int denominator)
    : AnalyticDouble(make(numerator, true) / make(denominator, true)) {
}

AnalyticDouble AnalyticDouble::operator+(AnalyticDouble const& other) const {
    return make(value + other.value, valid && other.valid);
}

AnalyticDouble AnalyticDouble::operator-(AnalyticDouble const& other) const {
    return make(value - other.value, valid && other.valid);
}

AnalyticDouble AnalyticDouble::operator*(AnalyticDouble const& other) const {
    return make(value * other.value, valid && other.valid);
}

AnalyticDouble AnalyticDouble::operator/(AnalyticDouble const& other) const {
    bool const defined = valid && other.valid && other.value != 0.0;
    return defined ? make(value / other.value, true) : AnalyticDouble();
}

} // namespace QX
