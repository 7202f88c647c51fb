#pragma once

#include "options.h"

#include <qx/qx.h>

#include <iosfwd>
#include <string>
#include <vector>

namespace qxtab {

/// The names that Options::as may have.
std::vector<std::string> formatNames();

/// Writes the table in the format, and with at most the number of data rows, that the options name.
///
/// Raises Failure for what the format can't hold. Whether `os` took everything is for the caller to see.
void writeTable(std::ostream& os, QX::Ptr<QX::Table const> const& table, Options const& options);

/// Writes aligned columns below an underlined header: numbers to the right, everything else to the left,
/// widths counted in UTF-8 code points.
void writeText(std::ostream& os, QX::Table const& table);

/// Writes a header and one line per data row, with fields quoted where it is needed to read the same
/// table again. An empty cell is a field without text, a string cell without characters is "", and so is
/// the empty name of a table's only index, since a line without text names nothing. Numbers that are not
/// finite are written as nan, inf and -inf, which read back as texts.
void writeSeparated(std::ostream& os, QX::Table const& table, char delimiter);

/// Writes an array with one object per data row, in the order of the indices.
///
/// Empty cells, numbers that are not valid and those that are not finite become null, a nested table
/// becomes an array like this one, an error its marked message. An index without a name is called
/// "column N", and a name that was there before gets " (2)", " (3)" and so on, so that no value is lost.
///
/// Raises Failure for a text that is not UTF-8.
void writeJson(std::ostream& os, QX::Table const& table);

/// Writes the values below the names, each on a line as it is, index by index: a text that holds a line
/// end goes over several lines, an empty cell gives an empty line.
void writeValues(std::ostream& os, QX::Table const& table);

/// The number of rows below the names.
std::size_t dataRows(QX::Table const& table);

} // namespace qxtab
