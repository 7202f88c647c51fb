#pragma once

#include "commandline.h"

namespace qxtab {

/// Reads the files, does one verb after another and writes the result. Returns the exit status.
int run(CommandLine const& line);

} // namespace qxtab
