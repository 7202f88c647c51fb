#pragma once

#include "qxbase/status.h"

namespace QX {

/// Raises Except with `status` and the line of the caller.
[[noreturn]] void raise(Status const& status, int line = __builtin_LINE());

/// Raises Except with an Error of this text and the line of the caller.
[[noreturn]] void raise(char const* text, int line = __builtin_LINE());

} // namespace QX
