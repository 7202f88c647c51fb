#pragma once

#include "qxbase/str.h"
#include "table/model/columnview.h"
#include "table/rows/keyindex.h"

#include <optional>
#include <vector>

namespace QX {

/// The texts of one condition that drop a row.
class ExcludedTexts {
public:
    /// Takes the values of a column, those that it lacks as empty texts.
    ExcludedTexts(ColumnView const& values, bool keepEmpty);

    /// True when the text of `cell` is none of the values and, unless empty texts are kept, is not
    /// empty.
    bool passes(Cell const& cell);

private:
    void fileTexts();
    void fileNumbers();

    std::vector<Str> values_;
    bool keepEmpty_;
    std::optional<KeyIndex> texts_;   // made when a cell asks for them
    std::optional<KeyIndex> numbers_; // those of the texts that numbers have, likewise
};

} // namespace QX
