#include "qx/except.h"

#include <cstddef>
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

Except::~Except() {
    std::unique_ptr<Except> link = std::move(inner_);
    while (link != nullptr) {
        link = std::move(link->inner_); // ends a link that wraps nothing any more
    }
}

namespace {

/// Writes `count` links of a chain, innermost first. Takes the inner half first, so that neither memory
/// nor, for as many links as there can be, much of the stack is needed.
void displayChain(std::ostream& os, Except const& outermost, std::size_t count) {
    if (count == 1) {
        outermost.report().display(os);
        return;
    }
    std::size_t const outer = count / 2;
    Except const* middle = &outermost;
    for (std::size_t i = 0; i < outer; ++i) {
        middle = middle->inner();
    }
    displayChain(os, *middle, count - outer);
    displayChain(os, outermost, outer);
}

} // namespace

std::ostream& operator<<(std::ostream& os, Except const& e) {
    std::size_t count = 0;
    for (Except const* link = &e; link != nullptr; link = link->inner()) {
        ++count;
    }
    displayChain(os, e, count);
    return os;
}

} // namespace QX
