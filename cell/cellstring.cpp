#include "cell/cellstring.h"

#include "base/makeptr.h"
#include "cell/cellnumeric.h"

#include <ostream>

namespace QX {

namespace {

bool hasText(CellImplementation const& body) {
    return body.isA() == Cell::StringCell || body.isA() == Cell::ErrorCell;
}

} // namespace

CellString::~CellString() = default;

bool CellString::compare(CellImplementation const& other, bool flag) const {
    if (hasText(other)) {
        return text_.compare(static_cast<CellString const&>(other).text_, flag) == 0;
    }
    if (other.isA() != Cell::NumericCell) {
        return false;
    }
    Date const own = date();
    return own.isValid() && own.days() == static_cast<CellNumeric const&>(other).date().days();
}

Ptr<CellImplementation> CellString::clone() const {
    return makePtr<CellString>(text_);
}

std::ostream& CellString::display(std::ostream& os) const {
    return os << text_;
}

Status CellString::get(Date& out) const {
    out = date();
    if (out.isValid()) {
        return Status();
    }
    Status failure("String ", Status::Error, -1);
    failure << text_ << " is not a recognised date";
    return failure;
}

Status CellString::get(Str& out, int /*precision*/) const {
    out = text_;
    return Status();
}

Status CellString::get(bool& out) const {
    out = text_.compare("TRUE", true) == 0;
    return Status();
}

bool CellString::lessThan(CellImplementation const& other) const {
    if (hasText(other)) {
        return text_.compare(static_cast<CellString const&>(other).text_, false) < 0;
    }
    if (other.isA() != Cell::NumericCell) {
        return true;
    }
    Date const own = date();
    return own.isValid() && static_cast<CellNumeric const&>(other).date().days() < own.days();
}

} // namespace QX
