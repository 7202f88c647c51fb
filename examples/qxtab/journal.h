#pragma once

#include <qx/qx.h>

#include <string>
#include <vector>

namespace qxtab {

// What the program says beside its output: messages on standard error, and the log. There is one log, as
// there is one standard error; until it is started, what is logged goes nowhere. Whatever the data hold,
// no message takes more than one line or steers a terminal.

/// Starts the log: at the end of a file, or on standard error when there is none and `verbose` is set.
///
/// Raises Failure for a file that can't be opened, and for one that is also among `inputs`.
void startLog(std::string const& file, bool verbose, std::vector<std::string> const& inputs);

/// Writes to the log what is being done.
void log(std::string const& message, QX::Log::LogLevel level = QX::Log::Info);

/// Tells "qxtab: message" on standard error and, where that is another place, in the log.
void tell(std::string const& message, QX::Log::LogLevel level = QX::Log::Warning);

/// Raises Failure when the log's file has not taken everything.
void finishLog();

} // namespace qxtab
