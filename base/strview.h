#pragma once

#include "qxbase/str.h"

#include <string_view>

namespace QX {

/// The bytes of a text, valid until it is changed or destroyed.
inline std::string_view viewOf(Str const& text) {
    return {text.data(), text.size()};
}

inline Str toStr(std::string_view text) {
    Str made;
    made.assign(text.data(), text.size());
    return made;
}

/// Str::compare() == 0 for two views.
inline bool equalTexts(std::string_view left, std::string_view right, bool ignoreCase) {
    return left == right ||
           (ignoreCase && left.size() == right.size() && toStr(left).compare(toStr(right), true) == 0);
}

} // namespace QX
