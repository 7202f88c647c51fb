#include "qx/library.h"

namespace QX {

Moniker::Moniker(Str const& name) : name_(name) {
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
