#pragma once

#include <qx/qx.h>

#include <string>

namespace qxtab {

/// What messages call a file of the command line.
std::string messageName(std::string const& file);

/// Reads a file of delimiter-separated values, or standard input for "-", into a new table named after
/// the file.
///
/// The first row that is not blank names the indices; each further row becomes one item of every index.
/// Every field, the names included, becomes the cell that QX::Cell(QX::Str) makes of it, so "12.5" is a
/// number, and naming an index by its header's text finds it. A field without any text becomes an empty
/// cell, a quoted one ("") a string cell without characters.
///
/// A row that is shorter than the header gets empty cells; the extra fields of a longer one go to
/// further indices named "column N". Such rows, names that are there twice, and whole numbers that lose
/// leading zeros or digits are told on standard error with file and line, ten messages at most and then
/// as a count. Blank lines are skipped, except that they are rows with an empty cell where the header
/// has one name.
///
/// `delimiter` is one character, or empty: a tab for files that end in .tsv or .tab, else a comma. Text
/// is taken as it is, apart from a UTF-8 byte order mark at its start.
///
/// Raises Failure that names the file, and the line where there is one.
QX::Ptr<QX::Table> readTable(std::string const& file, std::string const& delimiter);

} // namespace qxtab
