#pragma once

#include <qx/qx.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace qxtab {

/// What ends the program with exit code 1: the message, which names the file and the line where it can.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What ends it with exit code 2: a command line that can't be understood.
class Misuse : public Failure {
public:
    using Failure::Failure;
};

/// Raises Failure with the message of a status that is not Ok.
void require(QX::Status const& status);

/// The bytes of a library text, zero bytes included.
std::string bytes(QX::Str const& text);

/// A library text of some bytes, zero bytes included.
QX::Str text(std::string_view bytes);

/// ", did you mean 'price'?" when one of the words is nearly `word`, otherwise nothing.
std::string suggestion(std::string_view word, std::vector<std::string> const& words);

} // namespace qxtab
