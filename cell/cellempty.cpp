#include "cell/cellempty.h"

#include "base/immortal.h"
#include "base/makeptr.h"

#include <ostream>

namespace QX {

namespace {

constinit Immortal<CellEmpty> const sharedBody;

} // namespace

CellEmpty const& CellEmpty::shared() {
    return sharedBody.object;
}

bool CellEmpty::compare(CellImplementation const& other, bool /*flag*/) const {
    return other.empty();
}

Ptr<CellImplementation> CellEmpty::clone() const {
    return makePtr<CellEmpty>();
}

std::ostream& CellEmpty::display(std::ostream& os) const {
    return os << emptyText;
}

Status CellEmpty::get(Str& out, int /*precision*/) const {
    out = Str();
    return Status();
}

Status CellEmpty::get(bool& out) const {
    out = false;
    return Status();
}

bool CellEmpty::lessThan(CellImplementation const& /*other*/) const {
    return true;
}

} // namespace QX
