#include "table/model/raise.h"

#include "qx/except.h"

namespace QX {

void raise(Status const& status, int line) {
    throw Except(Report(status, "table\\src\\tableimpl", line));
}

void raise(char const* text, int line) {
    raise(Status(text, Status::Error, -1), line);
}

} // namespace QX
