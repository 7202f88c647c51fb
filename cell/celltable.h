#pragma once

#include "cell/cellimplementation.h"

namespace QX {

/// The body of a table cell: a nested table, never null.
class CellTable final : public CellImplementation {
public:
    using CellImplementation::get;

    /// Shares `table`; a null handle gives a new table named "Null Table".
    explicit CellTable(Ptr<Table> const& table);
    /// Holds a deep copy of `table`; a null handle or one without a data body gives a "Null Table", too.
    explicit CellTable(Ptr<Table const> const& table);
    ~CellTable() override;

    bool compare(CellImplementation const& other, bool flag) const override;
    Ptr<CellImplementation> clone() const override;
    std::ostream& display(std::ostream& os) const override;
    Cell::CellType isA() const override { return Cell::TableCell; }
    bool empty() const override { return table_.isNull(); }
    Status get(Ptr<Table>& out) const override;
    Status get(Ptr<Table const>& out) const override;
    bool lessThan(CellImplementation const& other) const override;

    Ptr<Table> const& table() const { return table_; }
    /// The number of handles that share the table.
    std::uint32_t owners() const { return table_.useCount(); }

private:
    Ptr<Table> table_;
};

} // namespace QX
