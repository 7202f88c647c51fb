#pragma once

#include <qx/qx.h>

#include <stdexcept>
#include <string>

namespace qxtab {

/// What ends the program with exit code 1: the message, which names the file and the line where it can.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Raises Failure with the message of a status that is not Ok.
void require(QX::Status const& status);

/// The bytes of a library text, zero bytes included.
std::string bytes(QX::Str const& text);

} // namespace qxtab
