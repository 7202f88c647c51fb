#pragma once

#include "base/makeptr.h"
#include "qx/cell.h"
#include "qx/table.h"

#include <cstddef>
#include <iosfwd>
#include <vector>

namespace QX {

/// The body of a table: its name and its indices. Everything that Table documents is done here.
class TableImplementation {
public:
    using Index = std::vector<Cell>;

    static constexpr std::size_t npos = Table::npos;

    explicit TableImplementation(Str const& name);
    TableImplementation(TableImplementation const&) = delete;
    TableImplementation& operator=(TableImplementation const&) = delete;
    virtual ~TableImplementation();

    /// The cell that reading a position beyond the table yields, in every table.
    static Cell& sharedEmptyCell();

    Str const& name() const { return name_; }
    std::size_t indices() const { return indices_.size(); }
    std::size_t items() const;
    Cell const& get(std::size_t i, std::size_t j) const;
    Cell const& get(Str const& name, std::size_t j) const;
    Cell& at(std::size_t i, std::size_t j);
    Cell& at(Str const& name, std::size_t j);
    Cell& at(std::size_t i, std::size_t j, Cell const& cell);
    Cell& at(Str const& name, std::size_t j, Cell const& cell);

    /// The first index whose name equals `name`, or npos.
    std::size_t findIndex(Cell const& name) const;
    /// Adds an index that holds only its name and returns its number.
    std::size_t addIndex(Str const& name);

    bool check() const;
    /// A deep copy as a new table with empty attributes.
    Ptr<Table> clone() const;
    std::ostream& display(std::ostream& os, int number) const;

private:
    /// The cell at a position other than npos; grows the table to it or, if that fails, leaves it as it
    /// was.
    Cell& reach(std::size_t i, std::size_t j);
    /// Adds an index of at least j + 1 items, the first of them `name`.
    Index& addIndex(Cell const& name, std::size_t j);

    Str name_;
    std::vector<Index> indices_;
};

/// The nested table of a table cell; null for every other cell.
inline Ptr<Table> tableOf(Cell const& cell) {
    Ptr<Table> table;
    cell.get(table);
    return table;
}

} // namespace QX
