#include "qx/except.h"

#include <ostream>
#include <utility>

namespace QX {

Except::Except(Report const& report) : report_(report) {
}

Except::Except(Report const& report, std::unique_ptr<Except> inner)
    : report_(report), inner_(std::move(inner)) {
}

Except::Except(Except const& other) : std::exception(other), report_(other.report_) {
}

Except::~Except() = default;

std::ostream& operator<<(std::ostream& os, Except const& e) {
    if (e.inner() != nullptr) {
        os << *e.inner();
    }
    return e.report().display(os);
}

} // namespace QX
