#include "qxbase/analyticdouble.h"

namespace QX {

AnalyticDouble::AnalyticDouble(int numerator, int denominator)
    : AnalyticDouble(result(numerator, true) / result(denominator, true)) {
}

} // namespace QX
