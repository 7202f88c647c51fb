#pragma once

#include "qxbase/str.h"
#include "table/src/column.h"
#include "table/src/keytable.h"
#include "table/src/tableimpl.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace QX {

/// The rows of `column` that equal a value, grouped by value in the order of the values; within one
/// value in row order. A row that equals several values is listed for each.
///
/// Row 0 and value 0 are names and take no part. A row equals a value by `row.compare(value, false)`.
Rows rowsOfValues(Column const& column, Column const& values);

/// The plain way to rowsOfValues: every row is compared with every value.
Rows rowsByComparing(Column const& column, Column const& values);

/// The fast way to rowsOfValues, and for any values: each row looks up the values it may equal by their
/// keys.
Rows rowsByKeys(Column const& column, Column const& values);

/// The texts of one condition that drop a row.
class ExcludedTexts {
public:
    /// Takes the values of index k of `conditions`, those that it lacks as empty texts.
    ExcludedTexts(TableImplementation const& conditions, std::size_t k, bool keepEmpty);

    /// True when the text of `cell` is none of the values and, unless empty texts are kept, is not
    /// empty.
    bool passes(Cell const& cell) const;

private:
    bool passes(std::string_view text, std::uint64_t hash) const;

    std::vector<Str> kept_;
    KeyTable texts_;   // their places by their hashes
    KeyTable numbers_; // the finite ones among them, by their bits
    bool keepEmpty_;
};

} // namespace QX
