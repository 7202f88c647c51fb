#pragma once

#include <qx/iosource.h>

#include <string>

namespace qxtab {

/// Unpacks what gzip has packed, member after member. Raises Failure, with the name, for data that are
/// damaged or cut off, and in a program that was built without zlib.
QX::ByteSource gunzip(std::string const& name, QX::ByteSource const& packed);

} // namespace qxtab
