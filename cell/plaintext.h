#pragma once

#include <string_view>

namespace QX {

/// True for most texts that are nothing but text, as their first character tells: no number or date in
/// any form, no error, not empty in any sense. What is false may still be one.
inline bool isPlainText(std::string_view text) {
    if (text.empty()) {
        return false;
    }
    auto const first = static_cast<unsigned char>(text.front());
    return first >= 0x80U || (first >= 'a' && first <= 'z') || (first >= 'A' && first <= 'Z') ||
           first == '_';
}

} // namespace QX
