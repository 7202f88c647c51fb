#pragma once

#include "qx/iosource.h"

#include <iosfwd>
#include <string>
#include <string_view>

namespace QX {

/// Gives what a stream's buffer holds as soon as it holds something, so that nothing waits for a pipe to fill.
ByteSource streamSource(std::istream& in);

/// Gives a text in memory, which must stay.
ByteSource textSource(std::string_view text);

/// Gives the bytes of a file as soon as there are any. Raises IoError.
ByteSource fileSource(std::string const& path);

} // namespace QX
