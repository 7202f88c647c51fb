#include "table/model/bodies.h"

#include "memory/immortal.h"
#include "table/model/raise.h"

namespace QX {

TableImplementation const& emptyBody() {
    static Immortal<TableImplementation> const empty{Str()};
    return empty.object;
}

namespace {

// Made while the library is loaded: whoever forks while a thread makes it would wait for that thread.
[[maybe_unused]] TableImplementation const& madeAtLoad = emptyBody();
[[maybe_unused]] Cell const& cellMadeAtLoad = TableImplementation::sharedEmptyCell();

} // namespace

void requireOther(TableImplementation const& body, Ptr<Table> const& result) {
    if (result && TableBodies::data(*result).get() == &body) {
        raise("Result table cannot be same as 'this' table");
    }
}

} // namespace QX
