#pragma once

#include "qx/export.h"
#include "qxbase/report.h"

#include <exception>
#include <iosfwd>
#include <memory>

namespace QX {

/// The exception that the library raises when a table operation or the writable path access finds a
/// broken precondition.
///
/// Its text is in the report: a Status in state Error with the message, the library's name for where it
/// raises ("table\src\tableimpl" for all that tables do), and the line of the raise in the source file
/// that does it, for the library's developers. what() is not overridden: it gives the standard library's
/// default text, "std::exception" for one, so catch an Except before a `std::exception` and print it by
/// operator<<, or read `report().message(false)`. May be caught by a module other than the one that threw
/// it.
///
/// A chain of wrapped exceptions may have any length: printing and ending it take a small, fixed part of
/// the stack and no memory.
class QX_API Except : public std::exception {
public:
    /// Copies `report`.
    Except(Report const& report);
    /// Copies `report` and takes over an earlier exception that this one wraps, with all that it wraps
    /// itself.
    Except(Report const& report, std::unique_ptr<Except> inner);
    /// Copies the report only: wrapped exceptions stay with `other`.
    Except(Except const& other);
    Except& operator=(Except const&) = delete;
    ~Except() override;

    /// The message and the place of the raise.
    Report const& report() const { return report_; }
    /// The exception that this one wraps; null in those that the library raises.
    Except const* inner() const { return inner_.get(); }

private:
    Report report_;
    std::unique_ptr<Except> inner_;
};

/// Writes the wrapped exceptions, innermost first, then the report, each as Report::display() does.
QX_API std::ostream& operator<<(std::ostream& os, Except const& e);

} // namespace QX
