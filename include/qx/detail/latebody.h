#pragma once

#include "qx/ptr.h"

#include <atomic>

namespace QX {

class TableImplementation;

namespace Detail {

/// A table's handle to a body that is made when it is first needed: hardly any table has attributes, and
/// a body takes as much memory as all else of a small table. Const members may be called by any number of
/// threads at once, and all get the same body.
class LateBody {
public:
    /// Makes a handle to a body that is still to be made.
    LateBody() noexcept;
    /// Shares a body; a null handle stands for none, which stays so.
    explicit LateBody(Ptr<TableImplementation> const& body) noexcept;
    LateBody(LateBody const&) = delete;
    LateBody& operator=(LateBody const&) = delete;
    ~LateBody();

    void swap(LateBody& other) noexcept;
    /// True where there is none, and none is to be made.
    bool isNone() const noexcept;
    /// The body, made now if it was still to be made; null where there is none.
    Ptr<TableImplementation> held() const;
    /// The body, null while it is still to be made or where there is none.
    Ptr<TableImplementation> made() const noexcept;

private:
    mutable std::atomic<TableImplementation*> object_; // the empty body: still to be made
};

} // namespace Detail
} // namespace QX
