#pragma once

#include "qxbase/status.h"

namespace QX {

/// A status with its place, written in a form of its own.
class Report : public Status {
public:
    Report() {}
    Report(Status const& status, Str file, int line) : Status(status), file_(file), line_(line) {}

    Str file() const { return file_; }
    int line() const { return line_; }
    std::ostream& display(std::ostream& os) const { return os << "<" << message(false) << ">\n"; }

private:
    Str file_;
    int line_ = 0;
};

} // namespace QX
