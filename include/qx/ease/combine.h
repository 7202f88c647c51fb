#pragma once

#include "qx/ease/names.h"
#include "qx/table.h"

/// \file
/// The operations of Table on two tables, and transposing, as functions that return the result.
///
/// Each takes a Table or a handle, does what the member of Table does under the flags named here, shares
/// what it shares and costs what it costs. All raise Failure, with "No table provided" for a null handle
/// and with the message of a Status that is not Ok; what the members raise is passed on.

namespace QX {

namespace Detail {

/// A handle to a table that shares the bodies of `table`, for an operand.
inline Ptr<Table const> operand(Table const& table) {
    return Ptr<Table const>(new Table(table));
}

} // namespace Detail

inline namespace Ease {

/// Puts the indices of `other` behind those of the table, those of a name that is there over these; see
/// Table::merge(), by name.
[[nodiscard]] inline Ptr<Table> merged(TableArgument const& table, TableArgument const& other) {
    Ptr<Table> result;
    Detail::require(table->merge(Detail::operand(*other), result, true));
    return result;
}

/// Adds the rows of `other` below those of the table; indices that the table lacks are added. See
/// Table::append(), without dropping rows.
[[nodiscard]] inline Ptr<Table> appended(TableArgument const& table, TableArgument const& other) {
    Ptr<Table> result;
    Detail::require(table->append(Detail::operand(*other), result, true, false));
    return result;
}

/// Lays `other` over the table, cell by cell: its empty cells leave what lies beneath, indices and rows
/// that the table lacks are added. See Table::overlay().
[[nodiscard]] inline Ptr<Table> overlaid(TableArgument const& table, TableArgument const& other) {
    Ptr<Table> result;
    Detail::require(table->overlay(Detail::operand(*other), result, false, false, true));
    return result;
}

/// Lists how `right` differs from `left`, in the indices "Xpath", "Left" and "Right"; see
/// Table::compare(), which regards letter case.
[[nodiscard]] inline Ptr<Table> differences(TableArgument const& left, TableArgument const& right) {
    Ptr<Table> result;
    Detail::require(left->compare(Detail::operand(*right), result, false));
    return result;
}

/// Turns indices into rows; see Table::transpose().
[[nodiscard]] inline Ptr<Table> transposed(TableArgument const& table) {
    Ptr<Table> result;
    Detail::require(table->transpose(result));
    return result;
}

} // namespace Ease
} // namespace QX
