#pragma once

#include "qx/cell.h"
#include "qx/export.h"
#include "qx/ptr.h"
#include "qxbase/status.h"
#include "qxbase/str.h"

#include <cstddef>
#include <iosfwd>
#include <type_traits>

namespace QX {

class TableImplementation;

/// A named, ordered list of indices, each an ordered list of cells called items.
///
///     Table - prices
///     Index 0 <fruit> apple pear plum          index 0, its name "fruit" is item 0
///           1 <price> 3 4 5                    index 1: t.at("price", 2) is 4
///
/// Item 0 of an index is its name. Items at one position across all indices form a row; row 0 is the row
/// of names. Indices may differ in length and may even lack a name. A cell may hold another table, so
/// tables nest to any depth.
///
/// A Table is a handle over two shared bodies: the data, and a table of attributes that holds named
/// values about it. Copying a Table shares both bodies: a change made through one handle is seen through
/// all, and through every table cell that holds one of them. clone() makes a deep copy. Bodies only
/// grow: nothing here removes an index or an item. A handle without a data body reads as an empty table
/// with an empty name, and the first write through it makes a body.
///
/// Index and item numbers count from 0; `npos` (what -1 converts to) means "append" to the growing
/// accessors and no such position elsewhere.
///
/// Looking a name up costs one comparison per index, up to the first match; the name is matched as the
/// cell that Cell(Str const&) makes of it, against item 0 of each index that has items, under
/// `item0.compare(name, false)`. The first index that matches wins. So "2" finds an index named by the
/// number 2, and also one named by its neighbouring double.
///
/// A table and all tables and cells that share its bodies belong to one thread at a time.
class QX_API Table {
public:
    /// The position that means "append" or "nowhere".
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    /// Makes an empty table with an empty name.
    Table();
    /// Makes an empty table.
    explicit Table(Str const& name);
    /// Makes a handle to a data body, with attributes of its own; for the library's own use.
    explicit Table(Ptr<TableImplementation> const& body);
    /// Shares both bodies of `other`.
    Table(Table const& other);
    /// Shares both bodies of `other`, then releases those held so far.
    Table& operator=(Table const& other);
    /// Releases the attributes, then the data.
    virtual ~Table();

    /// True exactly when `other` points to this very Table object; bodies and contents are not compared.
    bool operator==(Ptr<Table> other);

    /// The table's name; valid as long as its data body.
    Str const& name() const;

    /// The number of indices.
    std::size_t indices() const;
    /// The largest number of items of any index, 0 without indices; the argument does not matter.
    ///
    /// Cost: one step per index.
    std::size_t items(std::size_t index) const;

    /// The cell at item j of index i, or the shared empty cell when there is no such position.
    ///
    /// Never changes the table and never allocates. The reference is valid until the table grows.
    Cell const& get(std::size_t i, std::size_t j) const;
    /// Same as get().
    Cell const& at(std::size_t i, std::size_t j) const;
    /// The cell at item j of the index with this name, or the shared empty cell.
    Cell const& get(Str const& name, std::size_t j) const;
    /// Same as get().
    Cell const& at(Str const& name, std::size_t j) const;

    /// The cell at item j of index i, to read or assign; the table grows to reach it.
    ///
    /// A new position holds an empty cell; indices before a new index are empty; other indices keep
    /// their length. i = npos adds an index (and j = npos is then its item 0); j = npos adds an item to
    /// index i. The reference is valid until the table grows.
    ///
    /// Raises std::length_error or std::bad_alloc for a position beyond any memory; the table is then as
    /// it was.
    Cell& at(std::size_t i, std::size_t j);
    /// The cell at item j of the index with this name, to read or assign; the table grows to reach it.
    ///
    /// A name that no index has adds an index with that name in item 0; j = npos is then its item 1.
    /// Raises as above; a name added on the way is then gone again.
    Cell& at(Str const& name, std::size_t j);

    /// Stores `cell`, sharing its body, at item j of index i, and returns the stored cell.
    ///
    /// The table grows as with at(i, j), but npos stores nothing: it returns the shared empty cell,
    /// which the caller must not assign to. `cell` may live in this table. Raises as above.
    Cell& at(std::size_t i, std::size_t j, Cell const& cell);
    /// Stores `cell` at item j of the index with this name, adding such an index when there is none.
    ///
    /// With j = npos the index is still added, but nothing else is stored and the shared empty cell is
    /// returned.
    Cell& at(Str const& name, std::size_t j, Cell const& cell);
    /// Same as the form for Str.
    Cell& at(char const* name, std::size_t j, Cell const& cell);
    /// Same as the form for std::size_t, for index numbers of other integer types, a literal 0 included;
    /// a negative number converts as usual, so -1 is npos.
    template <typename Integer, typename = std::enable_if_t<std::is_integral<Integer>::value>>
    Cell& at(Integer i, std::size_t j, Cell const& cell) {
        return at(static_cast<std::size_t>(i), j, cell);
    }

    /// False when the table contains itself, directly or through nested tables.
    ///
    /// Walks data bodies only, no attributes, index by index and item by item. Also false when a table
    /// nested at some depth is met again deeper down on a later branch, although nothing contains itself
    /// then.
    ///
    /// Cost: linear in the cells, each body walked once.
    bool check() const;

    /// Makes a deep copy, attributes included: nested tables are copied with it, other cell bodies
    /// shared.
    ///
    /// Every index of the copy has as many items as the longest, the added ones empty; a table without
    /// items gives a copy without indices. A nested table that is held twice is copied twice.
    Ptr<Table> clone() const;

    /// Not provided: returns Error "Not Implemented" with code -1 and leaves `result` unchanged.
    Status alias(Ptr<Table const> other, Ptr<Table>& result) const;

    /// A new handle to the attributes as a table of its own; changes made through it change this table's
    /// attributes.
    Ptr<Table> getAttributes() const;
    /// Makes the data of `table`, shared, the attributes of this table; a null handle gives new, empty
    /// attributes.
    ///
    /// Handles copied from this one before keep the attributes they had.
    void setAttributes(Ptr<Table> table);

    /// Writes the table and all tables nested in it, one line per index, and returns `os`.
    ///
    /// Nested tables come first, each headed by a number that its parent's line refers to; the table
    /// itself is headed by its name when `number` is -1, otherwise by `number`. Nested tables are
    /// numbered from `number` + 1 in index-then-item order; a nested table numbers its own from its own
    /// number + 1.
    ///
    ///     Table - 0
    ///     Index 0 <eur> 3 4
    ///     Table - prices
    ///     Index 0 <fruit> apple [Empty] `Table 0'
    ///           1 <price> ## 0 1076428800
    ///
    /// Each line ends with a blank (not shown here) after its last item, a newline and a flush. Cells
    /// are written by Cell::display(), numbers under the stream's own formatting. A handle without a
    /// data body writes "Null table" and a newline. A derived class may override it: nested tables are
    /// written through this virtual call.
    virtual std::ostream& display(std::ostream& os, int number = -1) const;

protected:
    /// The data body, null when there is none.
    Ptr<TableImplementation> getImplementation() const;

private:
    friend class TableImplementation;
    friend class CellTable;

    TableImplementation const& body() const;

    Ptr<TableImplementation> data_;
    Ptr<TableImplementation> attributes_;
};

} // namespace QX
