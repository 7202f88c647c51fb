#pragma once

#include "qxbase/export.h"
#include "qxbase/status.h"
#include "qxbase/str.h"

#include <iosfwd>

namespace QX {

/// A status together with the place in the source where it arose.
class QXBASE_API Report : public Status {
public:
    /// Makes an Ok report of no place.
    Report() = default;
    /// Copies `status` and keeps the source file name and line.
    Report(Status const& status, Str file, int line);

    /// The source file name; empty when there is none.
    Str const& file() const { return file_; }
    /// The source line; 0 when there is none.
    int line() const { return line_; }

    /// Writes "file(line): message" and a newline; without a file name only the message and a newline.
    /// The line is decimal, whatever format and locale the stream has.
    std::ostream& display(std::ostream& os) const;

private:
    Str file_;
    int line_ = 0;
};

/// Same as display().
QXBASE_API std::ostream& operator<<(std::ostream& os, Report const& report);

} // namespace QX
