#pragma once

#include "options.h"

#include <qx/qx.h>

#include <string>

namespace qxtab {

// What the program says beside its output: messages on standard error, and the log. There is one log, as
// there is one standard error; until it is started, what is logged goes nowhere.

/// Starts the log that the options ask for, if any: at the end of a file, or on standard error.
///
/// Raises Failure for a file that can't be opened, and for one that is also an input.
void startLog(Options const& options);

/// Writes to the log what is being done.
void log(std::string const& text, QX::Log::LogLevel level = QX::Log::Info);

/// Tells "qxtab: text" on standard error and, where that is another place, in the log.
void tell(std::string const& text, QX::Log::LogLevel level = QX::Log::Warning);

/// Raises Failure when the log's file has not taken everything.
void finishLog();

} // namespace qxtab
