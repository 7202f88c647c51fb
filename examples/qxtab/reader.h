#pragma once

#include "data.h"

#include <cstddef>
#include <string>

namespace qxtab {

/// How files are read.
struct ReadOptions {
    std::string delimiter; ///< one character; empty to go by the ending of each file's name
    std::string format;    ///< csv, tsv or json; empty to go by the ending, too
    std::map<std::string, ColumnType> types;
    std::size_t rows = QX::Table::npos; ///< how many at most
    bool exact = false;                 ///< whether JSON may hold everything about a table
    bool anyBytes = false;              ///< whether to read what looks like no text
};

/// Reads a file, "-" being standard input. The cells hold the fields byte for byte. What is odd is told.
///
/// Raises Failure, with file and line, for what can't be read.
Data readFile(std::string const& file, ReadOptions const& options);

} // namespace qxtab
