#pragma once

#include "data.h"

namespace qxtab {

/// Columns as the library's row operations are to see them: numbers as numbers, however they are written,
/// and texts as texts.
struct Keys {
    Table table;
    Positions columns; ///< in the table
};

/// The keys that some columns of a table make, each as its own type says.
Keys keysOf(Data const& data, Positions const& columns);

/// The keys to pair the rows of two tables by: numbers where both sides have numbers, otherwise texts.
struct KeyPair {
    Keys left;
    Keys right;
};
KeyPair keysOf(Data const& left, Positions const& leftColumns, Data const& right,
               Positions const& rightColumns);

/// The groups of equal rows.
struct RowGroups {
    Positions firsts; ///< the first row of each
    Positions of;     ///< for each row of the table the number of its group; row 0 has none
};
RowGroups groupsOf(Data const& data, Positions const& columns);

} // namespace qxtab
