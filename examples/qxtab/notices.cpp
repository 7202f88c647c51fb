#include "notices.h"

#include "journal.h"

#include <utility>

namespace qxtab {

namespace {

std::size_t const mostTold = 10;

} // namespace

Notices::Notices(std::string file) : file_(std::move(file)) {
}

void Notices::tell(std::string const& text) {
    add(file_, text);
}

void Notices::tell(std::size_t line, std::string const& text) {
    add(file_ + ":" + std::to_string(line), text);
}

void Notices::add(std::string const& place, std::string const& text) {
    if (++count_ <= mostTold) {
        qxtab::tell(place + ": " + text);
    }
}

void Notices::finish() const {
    if (count_ > mostTold) {
        qxtab::tell(file_ + ": " + std::to_string(count_ - mostTold) + " more such messages");
    }
}

} // namespace qxtab
