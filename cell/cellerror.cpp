#include "cell/cellerror.h"

namespace QX {

CellError::~CellError() = default;

bool CellError::compare(CellImplementation const& other, bool /*flag*/) const {
    return other.isA() == Cell::ErrorCell;
}

Status CellError::get(Status& out) const {
    out = Status(status_.message(false), Status::Error, -1);
    return Status();
}

Status CellError::get(Str& out, int /*precision*/) const {
    out = status_.message(true);
    return Status();
}

bool CellError::lessThan(CellImplementation const& /*other*/) const {
    return false;
}

} // namespace QX
