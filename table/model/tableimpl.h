#pragma once

#include "qx/cell.h"
#include "qx/table.h"
#include "table/model/column.h"
#include "table/model/columns.h"
#include "table/model/columnview.h"
#include "table/model/indexnames.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace QX {

class Name;

/// The body of a table: its name and its indices, with the access to their cells that Table documents.
/// What is computed from whole tables lies in the rooms beside this one.
class TableImplementation {
public:
    static constexpr std::size_t npos = Table::npos;

    explicit TableImplementation(Str const& name);
    TableImplementation(TableImplementation const&) = delete;
    TableImplementation& operator=(TableImplementation const&) = delete;
    virtual ~TableImplementation();

    /// The cell that reading a position beyond the table yields, in every table.
    static Cell& sharedEmptyCell();

    Str const& name() const { return name_; }
    /// The indices, to be changed in any way; not what looking up names needs.
    Columns& columns() {
        names_.forget();
        return columns_;
    }
    Columns const& columns() const { return columns_; }
    std::size_t indices() const { return columns_.size(); }
    /// The number of items of the longest index.
    std::size_t items() const;

    Cell const& get(std::size_t i, std::size_t j) const {
        return i < columns_.size() && j < columns_[i].size() ? columns_[i][j] : sharedEmptyCell();
    }
    Cell const& get(Str const& name, std::size_t j) const;
    Cell& at(std::size_t i, std::size_t j) {
        if (i >= columns_.size()) {
            return addUpTo(i == npos ? columns_.size() : i, j == npos ? 0 : j);
        }
        if (j == npos) {
            j = columns_[i].size();
        }
        if (j == 0 || columns_[i].empty()) {
            names_.expose(columns_, i);
        }
        return reach(i, j);
    }
    /// The same of a position other than npos, in a new table whose names are not looked up meanwhile and
    /// to which no reference stays.
    Cell& reach(std::size_t i, std::size_t j) {
        if (i >= columns_.size()) {
            return addUpTo(i, j);
        }
        Column& column = columns_[i];
        if (j >= column.size()) {
            column.resize(j + 1);
        }
        return column[j];
    }
    Cell& at(Str const& name, std::size_t j);
    Cell& at(Name const& name, std::size_t j);
    /// Stores at a position other than npos.
    Cell& at(std::size_t i, std::size_t j, Cell const& cell);
    Cell& at(Str const& name, std::size_t j, Cell const& cell);

    /// The first index whose name equals `name`, or npos.
    std::size_t findIndex(Name const& name) const;
    std::size_t findIndex(Cell const& name) const;

    /// Index i as a column of `items` cells.
    ColumnView view(std::size_t i, std::size_t items) const {
        return {columns_[i], items, sharedEmptyCell()};
    }
    /// Index i as a column of this table.
    ColumnView view(std::size_t i) const { return view(i, items()); }
    /// All indices as columns of this table.
    std::vector<ColumnView> views() const;

    /// Adds an index that holds only its name and returns its number.
    std::size_t addIndex(Str const& name);
    /// Adds an index of so many items, at least one, the first of them `name`.
    Column& addSized(Cell const& name, std::size_t items);
    /// Adds an index without items, with room for so many.
    Column& addReserved(std::size_t items);
    /// Adds an index that is made already.
    void addColumn(Column&& column) {
        columns_.push_back(std::move(column));
        names_.added(columns_);
    }
    /// Adds an index that holds the cells of a column.
    void addCopy(ColumnView const& view);
    /// Adds the indices of another table, padded to its rectangle; none when it has no item.
    void addRectangle(TableImplementation const& other);

private:
    /// Adds indices up to index i, which gets items up to item j; returns that one. Adds nothing if it
    /// fails.
    Cell& addUpTo(std::size_t i, std::size_t j);

    Str name_;
    Columns columns_;
    IndexNames names_;
};

/// Makes a table body and the first handle to it.
Ptr<TableImplementation> makeBody(Str const& name);
/// A handle to a body that makeBody() made; takes over one count.
Ptr<TableImplementation> takeOver(TableImplementation& body);

} // namespace QX
