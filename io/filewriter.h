#pragma once

#include <functional>
#include <iosfwd>
#include <string>

namespace QX {

/// Replaces what a file holds by what `write` writes. Raises IoError.
void writeFile(std::string const& path, std::function<void(std::ostream&)> const& write);

} // namespace QX
