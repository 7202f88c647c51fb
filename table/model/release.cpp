#include "memory/pool.h"
#include "memory/threadlocal.h"
#include "table/model/tableimpl.h"

#include <utility>

namespace QX {

/// A count block with its table body, and a link to the next of those that wait to be deleted.
struct CountedBody final : PtrRefCount, TableImplementation, Pooled {
    CountedBody(Deleter deleter, Str const& name)
        : PtrRefCount(QX_MODULE_TAG, deleter), TableImplementation(name) {}

    CountedBody* next = nullptr;
};

namespace {

/// Where the deletion that is under way in this thread keeps those that wait; null while there is none.
QX_TLS_INITIAL_EXEC thread_local constinit CountedBody** waitingBodies = nullptr;

/// Deletes a body and, one after the other, all bodies whose last handles go with it. Tables nest to any
/// depth, so that a body must not be deleted from within the deletion of the one that holds it.
void deleteBody(PtrRefCount* block, void* /*object: a part of the block*/) {
    Detail::requireReleased(*block);
    auto* const last = static_cast<CountedBody*>(block);
    if (waitingBodies != nullptr) {
        last->next = std::exchange(*waitingBodies, last);
        return;
    }
    CountedBody* waiting = last;
    waitingBodies = &waiting;
    while (waiting != nullptr) {
        CountedBody const* const body = std::exchange(waiting, waiting->next);
        delete body;
    }
    waitingBodies = nullptr;
    settleStorage();
}

} // namespace

Ptr<TableImplementation> makeBody(Str const& name) {
    auto* const counted = new CountedBody(&deleteBody, name);
    return Ptr<TableImplementation>(counted, counted);
}

Ptr<TableImplementation> takeOver(TableImplementation& body) {
    return Ptr<TableImplementation>(&body, &static_cast<CountedBody&>(body));
}

} // namespace QX
