#pragma once

#include "data.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace qxtab {

struct WriteOptions {
    bool styled = false; ///< whether names stand out, as a terminal shows it
    bool exact = false;  ///< whether JSON holds everything about the table
};

/// A form in which a table is written.
struct Format {
    char const* name;
    char const* help;
    void (*write)(std::ostream& os, Data const& data, WriteOptions const& options);
};

/// All formats: the first is for people.
std::vector<Format> const& formats();
/// The format of a name. Raises Misuse.
Format const& formatNamed(std::string const& name);

/// Writes columns that are aligned, and everything visible.
void writeText(std::ostream& os, Data const& data, WriteOptions const& options);

/// Writes an array of objects, one for each row, or the objects alone, each on a line. Numbers that are
/// such in JSON are written as they were read, in columns of numbers.
void writeJson(std::ostream& os, Data const& data, WriteOptions const& options);
void writeJsonLines(std::ostream& os, Data const& data, WriteOptions const& options);

/// The text of a cell as writeText() shows it.
std::string shownText(QX::Cell const& cell);

} // namespace qxtab
