#include "qxbase/report.h"

#include <ostream>
#include <utility>

namespace QX {

Report::Report(Status const& status, Str file, int line)
    : Status(status), file_(std::move(file)), line_(line) {
}

std::ostream& Report::display(std::ostream& os) const {
    if (!file_.empty()) {
        os << file_ << '(' << Str::asString(line_) << "): "; // whatever format the stream has
    }
    return os << message(false) << '\n';
}

std::ostream& operator<<(std::ostream& os, Report const& report) {
    return report.display(os);
}

} // namespace QX
