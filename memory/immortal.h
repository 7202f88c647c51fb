#pragma once

#include <utility>

namespace QX {

/// Holds a process-wide object that outlives every other, so that destructors of the program's own
/// globals may still use it.
template <typename T>
union Immortal {
    template <typename... Args>
    constexpr explicit Immortal(Args&&... args) : object(std::forward<Args>(args)...) {}
    ~Immortal() {}
    Immortal(Immortal const&) = delete;
    Immortal& operator=(Immortal const&) = delete;

    T object;
};

} // namespace QX
