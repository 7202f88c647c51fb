#include "cell/cellnumeric.h"

#include "base/makeptr.h"
#include "cell/cellstring.h"
#include "cell/cellvalue.h"
#include "cell/numbertext.h"
#include "cell/operator.h"

#include <ostream>
#include <string>

namespace QX {

bool CellNumeric::hasDate(CellImplementation const& other) const {
    if (other.isA() != Cell::StringCell) {
        return false;
    }
    Date const others = static_cast<CellString const&>(other).date();
    return others.isValid() && others.days() == date().days();
}

Ptr<CellImplementation> CellNumeric::clone() const {
    return makePtr<CellNumeric>(value_);
}

std::ostream& CellNumeric::display(std::ostream& os) const {
    if (!value_.isValid()) {
        return os << undefinedText;
    }
    return isWhole(value_.get()) ? os << value_.get() : writeExact(os, value_.get());
}

Date CellNumeric::date() const {
    return Date(truncated(value_.get()));
}

Status CellNumeric::get(Date& out) const {
    out = date();
    return out.isValid() ? Status() : Status("Not a valid date", Status::Error, -1);
}

Status CellNumeric::get(Str& out, int precision) const {
    bool const fraction = !isWhole(value_.get());
    if (!value_.isValid() && precision != 0) {
        out = "NULL";
    } else if (precision == -1 && fraction) {
        std::string text;
        appendExact(text, value_.get());
        out = text;
    } else if (precision > 0 && fraction) {
        out = fixedText(value_.get(), precision);
    } else {
        out = Str::asString(value_.get());
    }
    return Status();
}

Status CellNumeric::get(bool& out) const {
    out = value_.get() != 0.0;
    return Status();
}

Status CellNumeric::get(int& out) const {
    out = truncated(value_.get());
    return isWhole(value_.get()) ? Status()
                                 : Status("Integer not equivalent to number", Status::Error, -1);
}

Cell CellNumeric::operation(Cell const& other, Str const& op) const {
    AnalyticDouble right;
    Operator const known = operatorOf(op);
    if (known == Operator::Unknown || !other.get(right).ok()) {
        return Cell(Str("that cell is not numeric"));
    }
    return Cell(operate(known, value_, right));
}

bool CellNumeric::isBefore(CellImplementation const& other) const {
    if (other.isA() != Cell::StringCell) {
        return false;
    }
    Date const others = static_cast<CellString const&>(other).date();
    return !others.isValid() || others.days() < date().days();
}

} // namespace QX
