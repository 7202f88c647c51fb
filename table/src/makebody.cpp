#include "base/pool.h"
#include "base/threadlocal.h"
#include "table/src/tableimpl.h"

namespace QX {

namespace {

/// A count block with its table body, and a link to the next of those that wait to be deleted.
struct CountedBody final : PtrRefCount, Pooled {
    CountedBody(Deleter deleter, Str const& name) : PtrRefCount(QX_MODULE_TAG, deleter), body(name) {}

    TableImplementation body;
    CountedBody* next = nullptr;
};

/// What is being deleted by a thread.
struct Deletion {
    CountedBody* waiting;
    bool underWay;
};

QX_SET_ASIDE thread_local constinit Deletion deletion{nullptr, false};

/// Deletes a body and, one after the other, all bodies whose last handles go with it. Tables nest to any
/// depth, so that a body must not be deleted from within the deletion of the one that holds it.
void deleteBody(PtrRefCount* block, void* /*object: a part of the block*/) {
    Detail::requireReleased(*block);
    auto* const last = static_cast<CountedBody*>(block);
    last->next = deletion.waiting;
    deletion.waiting = last;
    if (deletion.underWay) {
        return;
    }
    deletion.underWay = true;
    while (deletion.waiting != nullptr) {
        CountedBody const* const body = deletion.waiting;
        deletion.waiting = body->next;
        delete body;
    }
    deletion.underWay = false;
}

} // namespace

Ptr<TableImplementation> makeBody(Str const& name) {
    auto* const counted = new CountedBody(&deleteBody, name);
    return Ptr<TableImplementation>(&counted->body, counted);
}

} // namespace QX
