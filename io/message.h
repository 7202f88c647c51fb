#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace QX {

/// How many bytes of a text are shown where it is only an example.
inline constexpr std::size_t sampleSize = 40;

/// A text for a message: its beginning in quotes, control characters as \xNN.
std::string quotedForMessage(std::string_view text);

} // namespace QX
