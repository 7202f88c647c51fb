#pragma once

#include "qx/table.h"

#include <iosfwd>

/// What descends into nested tables, to any depth, as Table documents it. The caller keeps the tables
/// alive meanwhile.
namespace QX::Walks {

/// How one table is laid over another.
struct OverlayFlags {
    bool matchedOnly;
    bool emptyOverwrites;
    bool operandItems;
};

bool check(TableImplementation const& root);
/// A deep copy of a table and its attributes.
Ptr<Table> clone(Table const& table);
Status compare(TableImplementation const& left, TableImplementation const& right, Ptr<Table>& result,
               bool flag);
bool match(TableImplementation const& left, TableImplementation const& right);
/// Holds the table meanwhile, as a derived class's display may drop any.
std::ostream& display(Ptr<TableImplementation const> const& table, std::ostream& os, int number);
/// A null operand leaves a copy of the table.
Status overlay(TableImplementation const& table, TableImplementation const* operand, Ptr<Table>& result,
               OverlayFlags const& flags);
Status operation(TableImplementation const& left, TableImplementation const& right, Str const& op,
                 TableImplementation const& templ, Ptr<Table>& result);
Status makeTemplate(TableImplementation const& left, TableImplementation const& right,
                    Ptr<Table>& result);
/// Adds the sum of the marked cells to `total`.
Status unaryOperation(TableImplementation const& table, Str const& op, TableImplementation const& templ,
                      double& total);

} // namespace QX::Walks
