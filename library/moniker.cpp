#include "qx/library.h"

#include <utility>

namespace QX {

Moniker::Moniker(Str const& name) : name_(name) {
}

Moniker& Moniker::operator=(Moniker const& other) {
    Str text(other.moniker_); // first: nothing has changed when memory runs out
    name_ = other.name_;
    moniker_ = std::move(text);
    return *this;
}

Moniker::~Moniker() = default;

Str Moniker::create(Str const& name) {
    name_ = name;
    return this->name();
}

Str Moniker::name() const {
    return name_;
}

Str Moniker::moniker() const {
    return moniker_.empty() ? name() : moniker_;
}

bool Moniker::checkMoniker(Str const& /*text*/) const {
    return true;
}

void Moniker::name(Str const& text) {
    name_ = text;
}

void Moniker::moniker(Str const& text) {
    moniker_ = text;
}

} // namespace QX
