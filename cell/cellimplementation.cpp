#include "cell/cellimplementation.h"

namespace QX {

namespace {

Status notSupported(char const* target) {
    return Status(Str("Cell translation to ") + target + " not supported for this type", Status::Error,
                  -1);
}

} // namespace

Status CellImplementation::get(Date& /*out*/) const {
    return notSupported("date");
}

Status CellImplementation::get(Ptr<Table const>& /*out*/) const {
    return notSupported("const table");
}

Status CellImplementation::get(Ptr<Table>& /*out*/) const {
    return notSupported("table");
}

Status CellImplementation::get(Status& /*out*/) const {
    return notSupported("status");
}

Status CellImplementation::get(Str& /*out*/, int /*precision*/) const {
    return notSupported("string");
}

Status CellImplementation::get(bool& /*out*/) const {
    return notSupported("bool");
}

Status CellImplementation::get(int& /*out*/) const {
    return notSupported("integer");
}

Status CellImplementation::get(AnalyticDouble& /*out*/) const {
    return notSupported("AnalyticDouble");
}

Status CellImplementation::get(double& /*out*/) const {
    return notSupported("double");
}

Cell CellImplementation::operation(Cell const& /*other*/, Str const& /*op*/) const {
    return Cell(Status("Cell operation not supported for this type", Status::Error, -1));
}

} // namespace QX
