#pragma once

#include <qx/qx.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace qxtab {

/// What the command line says: one set for all commands, each of which reads its part.
struct Options {
    std::vector<std::string> files; ///< the inputs; "-" is standard input
    std::string delimiter;          ///< one character; empty to go by the ending of each file's name
    std::string as; ///< the output format, one of formatNames(); empty for the command's own
    std::optional<std::size_t> head; ///< how many data rows to write; all when not set
    std::string logFile;             ///< where to log; empty for nowhere
    bool verbose = false;            ///< log more, on standard error if there is no file

    QX::Ptr<QX::Table const> operand; ///< --by, --columns or --values; null when not given
    std::vector<QX::Ptr<QX::Table const>> conditions; ///< one operand for each --where
    std::string path;                                 ///< what get looks up
    std::string separator = "/";                      ///< one character, between the steps of the path
    int rows = 0;                                     ///< the least number of data rows that fill gives

    // The flags of the operations, named as in the library.
    bool descending = false;
    bool exclude = false;
    bool keepEmpty = false;
    bool keepUnmatched = false;
    bool distinct = false;
    bool invert = false;
    bool addIndices = false;
    bool byName = false;
    bool matchedOnly = false;
    bool emptyOverwrites = false;
    bool operandItems = false;
    bool ignoreCase = false;
};

} // namespace qxtab
