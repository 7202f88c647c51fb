#pragma once

#include "commandline.h"

namespace qxtab {

/// Writes a table to standard output, as the command line says: cut to its first rows, and on a terminal
/// page by page, with names that stand out, and without anything in the data that could steer it.
///
/// Raises Failure when not everything can be written. When the reader has gone, the program ends here as
/// others do.
void writeOutput(Data const& data, CommandLine const& line);

/// Hands on what is still to be written to standard output; raises as above.
void flushOutput();

} // namespace qxtab
