#pragma once

#include "qxbase/status.h"
#include "qxbase/str.h"

#include <type_traits>

namespace QX::Detail {

/// True where the base library's Status can refer to a text that outlives it.
template <typename Made, typename = void>
inline constexpr bool takesLiteral = false;
template <typename Made>
inline constexpr bool takesLiteral<Made, std::void_t<decltype(Made::ofLiteral("", Made::Error, -1))>> =
    true;

/// The Error of code -1 with a message that lasts as long as the library, such as a string literal of its
/// own. Copies nothing where that can be avoided.
template <typename Made = Status>
Made failure(char const* message) {
    if constexpr (takesLiteral<Made>) {
        return Made::ofLiteral(message, Made::Error, -1);
    } else {
        return Made(Str(message), Made::Error, -1);
    }
}

} // namespace QX::Detail
