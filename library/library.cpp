#include "qx/library.h"

#include "qx/cell.h"

namespace QX {

LibraryBase::LibraryBase(int number) : interfaces_{number} {
}

LibraryBase& LibraryBase::operator=(LibraryBase const& other) {
    std::set<int> interfaces(other.interfaces_); // first: nothing has changed when memory runs out
    name_ = other.name_;
    version_ = other.version_;
    interfaces_.swap(interfaces);
    return *this;
}

LibraryBase::~LibraryBase() = default;

void LibraryBase::name(Str const& text) {
    name_ = text;
}

Str const LibraryBase::name() const {
    return name_;
}

void LibraryBase::version(double number) {
    version_ = number;
}

double LibraryBase::version() const {
    return version_;
}

Str LibraryBase::interfaces() const {
    Str listing;
    for (int const number : interfaces_) {
        Str text;
        (void)Cell(double(number)).get(text, 0);
        listing += text + " ";
    }
    return listing;
}

bool LibraryBase::checkInterface(int number) const {
    return interfaces_.contains(number);
}

} // namespace QX
