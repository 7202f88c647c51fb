#pragma once

#include <qx/iosource.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace QX {

/// A text as a source that gives at most so many bytes at a time. Refers to the text.
inline ByteSource piecesOf(std::string const& text, std::size_t piece) {
    return [rest = std::string_view(text), piece](char* buffer, std::size_t size) mutable {
        std::size_t const taken = std::min({size, piece, rest.size()});
        rest.copy(buffer, taken);
        rest.remove_prefix(taken);
        return taken;
    };
}

} // namespace QX
