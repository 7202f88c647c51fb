#pragma once

#include "table/rows/columnprofile.h"

namespace QX {

/// ordered() by a column of empty cells, numbers, texts and errors, and no dates beside numbers, in which
/// order and equality may disagree:
///
/// - An error is before nothing and after nothing: the first value that is one remains the only value;
///   later ones are none.
/// - NaN likewise among numbers: the first number that is one remains the only number.
/// - Numbers 1 ulp apart equal each other, but are values of their own.
///
/// n log n in the rows, and linear in those listed.
Rows orderedOddNumbers(ColumnView const& column, ColumnProfile const& profile, Rows const& rows,
                       bool ascending);

} // namespace QX
