#pragma once

#include "qx/cell.h"

#include <string_view>

namespace QX {

/// The body of a cell: one class per kind, whose objects never change. Everything that Cell documents is
/// done here; the defaults are the failures of a kind that does not support the operation.
class CellImplementation {
public:
    CellImplementation() = default;
    CellImplementation(CellImplementation const&) = delete;
    CellImplementation& operator=(CellImplementation const&) = delete;
    virtual ~CellImplementation() = default;

    /// What a cell holds.
    static Detail::CellContent const& contentOf(Cell const& cell) { return cell.content_; }
    /// The cell of a text that is nothing but text and short enough to be held in the cell.
    static Cell shortCell(std::string_view text) {
        return Cell(Detail::CellContent(text.data(), text.size()));
    }

    virtual bool compare(CellImplementation const& other, bool flag) const = 0;
    /// A new body of this one's own; a table body's has an empty table of the same name, an error body's
    /// is the string body of its text.
    virtual Ptr<CellImplementation> clone() const = 0;
    virtual std::ostream& display(std::ostream& os) const = 0;
    virtual Cell::CellType isA() const = 0;
    virtual bool empty() const = 0;
    virtual Status get(Date& out) const;
    virtual Status get(Ptr<Table const>& out) const;
    virtual Status get(Ptr<Table>& out) const;
    virtual Status get(Status& out) const;
    virtual Status get(Str& out, int precision) const;
    virtual Status get(bool& out) const;
    virtual Status get(int& out) const;
    virtual Status get(AnalyticDouble& out) const;
    virtual Status get(double& out) const;
    virtual Cell operation(Cell const& other, Str const& op) const;
    virtual bool lessThan(CellImplementation const& other) const = 0;
};

} // namespace QX
