#pragma once

#include "base/makeptr.h"
#include "qx/cell.h"
#include "qx/table.h"
#include "table/src/cells.h"
#include "table/src/column.h"
#include "table/src/indices.h"

#include <cstddef>
#include <iosfwd>
#include <span>
#include <string>
#include <vector>

namespace QX {

class LineWriter;
class Name;

/// How one table is laid over another.
struct OverlayFlags {
    bool matchedOnly;
    bool emptyOverwrites;
    bool operandItems;
};

/// The body of a table: its name and its indices. Everything that Table documents is done here.
class TableImplementation {
public:
    using Index = Cells;

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
    /// The number of items of one index.
    std::size_t length(std::size_t i) const { return indices_[i].size(); }
    Cell const& get(std::size_t i, std::size_t j) const {
        return i < indices_.size() && j < indices_[i].size() ? indices_[i][j] : sharedEmptyCell();
    }
    Cell const& get(Str const& name, std::size_t j) const;
    Cell& at(std::size_t i, std::size_t j) {
        if (i >= indices_.size()) {
            return addUpTo(i == npos ? indices_.size() : i, j == npos ? 0 : j);
        }
        Index& index = indices_[i];
        if (j == npos) {
            j = index.size();
        }
        if (j >= index.size()) {
            index.resize(j + 1);
        }
        return index[j];
    }
    Cell& at(Str const& name, std::size_t j);
    Cell& at(Name const& name, std::size_t j);
    /// Stores at a position other than npos.
    Cell& at(std::size_t i, std::size_t j, Cell const& cell);
    Cell& at(Str const& name, std::size_t j, Cell const& cell);

    /// The first index whose name equals `name`, or npos.
    std::size_t findIndex(Name const& name) const;
    std::size_t findIndex(Cell const& name) const;
    /// The items of index i.
    Index const& index(std::size_t i) const { return indices_[i]; }
    /// Index i as a column of `items` cells.
    Column column(std::size_t i, std::size_t items) const {
        return {indices_[i], items, sharedEmptyCell()};
    }
    /// Index i as a column of this table.
    Column column(std::size_t i) const { return column(i, items()); }
    /// All indices as columns of this table.
    std::vector<Column> columns() const;
    /// Adds an index that holds only its name and returns its number.
    std::size_t addIndex(Str const& name);
    /// Adds an index of so many items, at least one, the first of them `name`.
    Index& addSized(Cell const& name, std::size_t items);
    /// Adds an index without items, with room for so many.
    Index& addReserved(std::size_t items);
    /// The last index.
    Index& last() { return indices_.back(); }
    /// Takes items from the end of index i until it has `length` of them, or with npos takes the indices
    /// from i on.
    void cut(std::size_t i, std::size_t length);
    /// Adds an index of a name and copies of further items.
    void addFilled(Cell const& name, std::span<Cell const* const> items);

    bool check() const;
    /// A deep copy of a table and its attributes.
    static Ptr<Table> clone(Table const& table);
    /// Holds the body meanwhile, as a derived class's display may drop any table.
    static std::ostream& display(Ptr<TableImplementation const> const& body, std::ostream& os,
                                 int number);

    // The operations of Table, one family per source file. The caller keeps this body alive meanwhile.
    Status merge(TableImplementation const& operand, Ptr<Table>& result, bool byName) const;
    Status fill(TableImplementation const& operand, Ptr<Table>& result, int count) const;
    Status append(TableImplementation const& operand, Ptr<Table>& result, bool addIndices,
                  bool distinct) const;
    /// A null operand leaves a copy of this table.
    Status overlay(TableImplementation const* operand, Ptr<Table>& result,
                   OverlayFlags const& flags) const;
    Status select(TableImplementation const& operand, Ptr<Table>& result, bool keepUnmatched,
                  bool distinct, bool invert) const;
    Status filter(TableImplementation const& operand, Ptr<Table>& result, bool keepEmpty,
                  bool exclude) const;
    Status transpose(Ptr<Table>& result) const;
    Status sort(TableImplementation const& operand, Ptr<Table>& result, bool ascending) const;
    Status compare(TableImplementation const& right, Ptr<Table>& result, bool flag) const;
    bool match(TableImplementation const& right) const;
    Status operation(TableImplementation const& right, Str const& op, TableImplementation const& templ,
                     Ptr<Table>& result) const;
    Status makeTemplate(TableImplementation const& other, Ptr<Table>& result) const;
    /// Adds the sum of the marked cells to `total`.
    Status unaryOperation(Str const& op, TableImplementation const& templ, double& total) const;

    /// Ok when both tables have as many indices and, at most, as many items.
    Status checkShape(TableImplementation const& other) const;

    /// The data body of a table; an empty one when it has none.
    static TableImplementation const& of(Table const& table);
    /// The data body that stands for a table without one.
    static TableImplementation const& none();
    /// True when the nested table of a table cell may be met elsewhere, too: cell, table or data body
    /// has more than one owner.
    static bool isShared(Cell const& cell);
    /// The data body of a table, shared; a new one that the table does not get when it has none.
    static Ptr<TableImplementation> held(Table const& table) { return table.heldBody(); }
    /// The handle of a table to its data body.
    static Ptr<TableImplementation>& dataOf(Table& table) { return table.data_; }
    /// The data body of an operand; raises when the handle is null.
    static TableImplementation const& required(Ptr<Table const> const& operand,
                                               char const* complaint = "No operand table provided");
    /// The data body of a table that an operation has just made.
    static TableImplementation& made(Ptr<Table> const& table) { return *table->data_; }
    /// Raises when `result` refers to this body, which overlay and append would otherwise change.
    void requireOther(Ptr<Table> const& result) const;
    /// Fills an empty table with this one's cells, padded to a rectangle; leaves it empty when there is
    /// no item.
    void copyRectangle(TableImplementation& target) const;

private:
    /// The cells of a column.
    static Index padded(Column const& column);
    /// Adds the rows that a copy of index i lacks, and empty ones up to `height`.
    void copyRows(std::size_t i, std::size_t height, Index& copy) const;
    /// Goes on with filling the copy of this body, which becomes `width` wide, up to the next nested
    /// table, whose copy the caller is to add. Null at the end.
    Table const* cloneCells(TableImplementation& copy, std::size_t width) const;
    /// Writes this table behind its nested tables, which were numbered from `number` + 1.
    void displayOwn(LineWriter& line, int number) const;
    /// A new table of the names row and the given rows of columns of one length, in their order.
    static Ptr<Table> pickRows(Str const& name, std::vector<Column> const& columns, Rows const& rows);
    /// A new table of this one's name that holds columns.
    Ptr<Table> copied(std::vector<Column> const& columns) const;
    /// A new table of the rows of columns that equal no earlier row.
    static Ptr<Table> pickDistinct(std::vector<Column>& columns);
    /// Drops all rows but the names row and the given ones, which ascend.
    void keepRows(Rows const& rows);
    /// Writes what the cells of row j display.
    void displayRow(std::size_t j, std::string& text) const;
    /// The rows, without the names row, that don't display like an earlier one.
    Rows distinctTexts() const;
    /// A selection of the indices that `operand` does not name.
    Ptr<Table> unnamedBy(TableImplementation const& operand, bool keepUnnamed) const;
    /// One filter condition: index k of `conditions`, applied to this table.
    Status filterStep(TableImplementation const& conditions, std::size_t k, Ptr<Table>& result,
                      bool keepEmpty, bool exclude) const;

    /// Adds indices up to index i, which gets items up to item j; returns that one. Adds nothing if it
    /// fails.
    Cell& addUpTo(std::size_t i, std::size_t j);

    Str name_;
    Indices indices_;
};

/// Makes a table body and the first handle to it.
Ptr<TableImplementation> makeBody(Str const& name);

/// The nested table of a table cell; null for every other cell.
inline Ptr<Table> tableOf(Cell const& cell) {
    Ptr<Table> table;
    if (cell.isA() == Cell::TableCell) {
        cell.get(table);
    }
    return table;
}

} // namespace QX
