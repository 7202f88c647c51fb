#pragma once

#include <qx/qx.h>

#include <string>

namespace qxtab {

/// The text that reads back as the same cell, as far as there is one: a number has all its digits, an
/// empty cell and a number that is not valid have no text, a nested table has its printed form.
std::string plainText(QX::Cell const& cell);

/// The text for a column on a screen: as plainText(), but on one line, with control characters written
/// as \n or \x1B, and with a nested table told by its name and size.
std::string screenText(QX::Cell const& cell);

} // namespace qxtab
