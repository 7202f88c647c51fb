#pragma once

#include <qx/iosource.h>

#include <string>

namespace qxtab {

/// What messages call an input: its file name, or "standard input" for "-".
std::string inputName(std::string const& file);

/// Opens a file for its bytes, "-" being standard input; what gzip has packed is unpacked on the way.
///
/// Raises Failure for what can't be opened or read, for files of other packers and, unless `anyBytes`,
/// for what holds a zero byte among its first 64 KiB, since it is no text. When reading takes long and
/// standard error is a terminal, it shows there how far it has come.
QX::ByteSource openInput(std::string const& file, bool anyBytes);

} // namespace qxtab
