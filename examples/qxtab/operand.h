#pragma once

#include <qx/qx.h>

#include <stdexcept>
#include <string>

namespace qxtab {

/// What is wrong with a list on the command line.
class ListError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Operands from the command line
//
// Each reads a list of entries, "NAME" or "NAME=VALUE", into a table that an operation takes as its
// operand: one index per entry, the name its item 0, values its further items. Names and values become
// cells as the fields of a file do: blanks around them don't count, nothing at all is an empty cell and
// "" a string cell without characters. What holds a comma or an equals sign is put in double quotes, and
// a quote inside them is written twice. All raise ListError for what is not written so.

/// Reads "a,b": one item per index.
QX::Ptr<QX::Table const> readNames(std::string const& text);
/// Reads "a,b=c": two items in the index of an entry that has a value, which must not be empty.
QX::Ptr<QX::Table const> readRenames(std::string const& text);
/// Reads "a=0,b=x": two items per index.
QX::Ptr<QX::Table const> readValues(std::string const& text);
/// Reads "a=1,2": one index, its values behind its name.
QX::Ptr<QX::Table const> readCondition(std::string const& text);

} // namespace qxtab
