#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace qxtab {

/// What the command line says: one set for all commands, each of which reads its part.
struct Options {
    std::vector<std::string> files;  ///< the inputs; "-" is standard input
    std::string delimiter;           ///< one character; empty to go by the ending of each file's name
    std::string as = "text";         ///< the output format, one of formatNames()
    std::optional<std::size_t> head; ///< how many data rows to write; all when not set
};

} // namespace qxtab
