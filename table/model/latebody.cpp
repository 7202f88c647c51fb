#include "qx/detail/latebody.h"

#include "table/model/bodies.h"

namespace QX::Detail {

namespace {

TableImplementation* unmade() {
    return const_cast<TableImplementation*>(&emptyBody());
}

} // namespace

LateBody::LateBody() noexcept : object_(unmade()) {
}

LateBody::LateBody(Ptr<TableImplementation> const& body) noexcept
    : object_(body ? body.get() : nullptr) {
    if (body) {
        body.block()->increment();
    }
}

LateBody::~LateBody() {
    TableImplementation* const body = object_.load(std::memory_order_acquire);
    if (body != nullptr && body != unmade()) {
        takeOver(*body);
    }
}

void LateBody::swap(LateBody& other) noexcept {
    other.object_ = object_.exchange(other.object_);
}

bool LateBody::isNone() const noexcept {
    return object_.load(std::memory_order_relaxed) == nullptr;
}

Ptr<TableImplementation> LateBody::held() const {
    if (object_.load(std::memory_order_relaxed) == unmade()) {
        LateBody mine(makeBody(Str()));
        TableImplementation* expected = unmade();
        if (object_.compare_exchange_strong(expected, mine.object_, std::memory_order_acq_rel)) {
            mine.object_ = nullptr; // it is this one's now
        }
    }
    return made();
}

Ptr<TableImplementation> LateBody::made() const noexcept {
    TableImplementation* const body = object_.load(std::memory_order_acquire);
    if (body == nullptr || body == unmade()) {
        return Ptr<TableImplementation>();
    }
    Ptr<TableImplementation> handle = takeOver(*body);
    handle.block()->increment(); // the count that this keeps
    return handle;
}

} // namespace QX::Detail
