#include "qx/detail/arithmetic.h"

#include "cell/number.h"
#include "qx/cell.h"
#include "qx/detail/failure.h"

namespace QX {

AnalyticDouble Detail::remainder(double left, double right) {
    int const a = truncated(left);
    int const b = truncated(right);
    if (b == 0) {
        return AnalyticDouble();
    }
    return validNumber(b == -1 ? 0 : a % b); // the smallest int has no quotient by -1
}

Detail::CellContent::Bits Cell::notComputed() const {
    Cell message = isA() == NumericCell
                       ? Cell(Str("that cell is not numeric"))
                       : Cell(Detail::failure("Cell operation not supported for this type"));
    return message.content_.release();
}

} // namespace QX
