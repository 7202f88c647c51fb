#include "notices.h"

#include <iostream>
#include <utility>

namespace qxtab {

namespace {

std::size_t const mostTold = 10;

} // namespace

Notices::Notices(std::string file) : file_(std::move(file)) {
}

void Notices::tell(std::size_t line, std::string const& text) {
    if (++count_ <= mostTold) {
        std::cerr << "qxtab: " << file_ << ":" << line << ": " << text << '\n';
    }
}

void Notices::finish() const {
    if (count_ > mostTold) {
        std::cerr << "qxtab: " << file_ << ": " << count_ - mostTold << " more such messages\n";
    }
}

} // namespace qxtab
