#pragma once

#include "qx/cell.h"
#include "qx/detail/latebody.h"
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
/// of names. Indices may differ in length and may even lack a name. A cell may hold another table.
///
/// Tables nest to any depth: nothing here takes more of the stack for a deeper table, releasing one
/// allocates nothing, and costs are linear in the depth. A table may contain itself, but is then never
/// given back. Where a descent would have no end for it, clone(), display(), compare(), match(),
/// overlay(), operation(), makeTemplate(), unaryOperation() and append() with `distinct` raise Except
/// "Table contains itself"; inputs are then as before, and `result` holds what it did or what was
/// computed so far.
///
/// A Table is a handle over two shared bodies: the data, and a table of attributes that holds named
/// values about it. Copying a Table shares both bodies: a change made through one handle is seen through
/// all, and through every table cell that holds one of them. clone() makes a deep copy. Bodies only
/// grow: nothing here removes an index or an item. A handle without a data body reads as an empty table
/// with an empty name, and the first write through it makes a body; copies made before share none.
///
/// Index and item numbers count from 0; `npos` (what -1 converts to) means "append" to the growing
/// accessors and no such position elsewhere.
///
/// A name that is looked up is matched as the cell that Cell(Str const&) makes of it, against item 0 of
/// each index that has items, under `item0.compare(name, false)`. The first index that matches wins. So
/// "2" finds an index named by the number 2, and also one named by its neighbouring double.
///
/// Looking a name up takes constant time in the mean, however many indices there are: up to 32 are looked
/// at one by one, more are filed by name when they have been looked through some 32 times. References to
/// names are what makes it slower: at(i, 0) hands one out, through which the name may change until an index
/// is added. After calls for more than 32 different indices, names are looked at one by one until then. To
/// read names, use get().
///
/// When memory runs out, std::bad_alloc is raised and tables are left as they were; `result` may then
/// hold a part of what was to come. A table and all tables and cells that share its bodies belong to one
/// thread at a time; threads that share none don't disturb each other.
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
    /// Shares both bodies of `other`, whose attributes are made for that when nothing has used them yet.
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
    /// Never changes the table and never allocates. The reference is valid until the table grows or its
    /// body goes.
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
    /// index i. The reference is valid until the table grows or its body goes: to append a cell of this
    /// table, copy it first, as in `t.at(i, Table::npos) = Cell(t.get(i, 1))`.
    ///
    /// Reading through it adds what is missing, too; get() never does.
    ///
    /// Raises std::length_error or std::bad_alloc for a position beyond any memory; nothing changes
    /// then.
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
    /// With j = npos the index is still added, but nothing is stored: returns the shared empty cell.
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

    /// The most tables that one call descends into again: 4,194,304 unless set otherwise.
    ///
    /// Cells may share one nested table, and a table that holds the next one twice, n levels deep, is met
    /// along 2^n ways. check(), match(), sums, releasing and operations that share cells take each table
    /// once. What writes or copies a nested table wherever it is met can't: clone(), display(), compare()
    /// where tables differ, overlay(), operation(), makeTemplate(), append() with `distinct` and paths
    /// that fan out raise Except "Nested tables repeat too often" when they meet so many tables more than
    /// there are cells that hold one. Inputs are then as before, and `result` holds what was computed so
    /// far.
    static std::size_t repeatLimit() noexcept;
    /// Sets that limit for all tables of the process; any thread may do so at any time, and calls that
    /// have begun keep the one they began with.
    static void setRepeatLimit(std::size_t count) noexcept;

    /// Makes a deep copy, attributes included: nested tables are copied with it, theirs too, other cell
    /// bodies shared.
    ///
    /// The copies are plain Tables, also those of a derived class. Every index of the copy has as many
    /// items as the longest, the added ones empty; a table without items gives a copy without indices. A
    /// nested table that is held twice is copied twice.
    Ptr<Table> clone() const;

    /// Not provided: returns Error "Not Implemented" with code -1 and leaves `result` unchanged.
    Status alias(Ptr<Table const> other, Ptr<Table>& result) const;

    /// A new handle to the attributes as a table of its own; changes made through it change this table's
    /// attributes.
    Ptr<Table> getAttributes() const;
    /// Makes the data of `table`, shared, the attributes of this table; a null handle gives new, empty
    /// attributes. A table without a data body leaves this one without attributes of its own until
    /// setAttribute() makes some, named "Attributes": getAttribute() then leaves its value as it was,
    /// and what is written through getAttributes() is not kept.
    ///
    /// Handles copied from this one before keep the attributes they had.
    void setAttributes(Ptr<Table> table);

    /// @name Values by path
    ///
    /// A path leads through nested tables: steps "name" or "name[item]" joined by the separator, as
    /// TblPath reads them ("/style/colours[2]/red"). Each step is applied to every table that the step
    /// before has reached, so that paths fan out: a step with an item number reaches that item of the
    /// named index, one without reaches items 1, 2, ... up to the largest item count of the table. Cells
    /// that are no tables lead nowhere. The walk stops at a step that has no name or whose number cannot
    /// be read.
    ///
    /// Cost: one name lookup for each step and table, then linear in the values reached.
    ///
    /// @{

    /// Collects every value that the path reaches, in order.
    ///
    /// `result` is made to refer to a new table named "results" of one index, which is named after the
    /// last step walked and holds the values, shared. A position that a table lacks gives an empty cell.
    /// For an empty path, or one whose first step stops the walk ("[2]", "a[x]"), it is a table named
    /// "Xpath" whose index "base" holds this table: a new handle that shares the data, with attributes of
    /// its own, which are empty. Never changes this table. Always returns Ok.
    ///
    ///     this                       path       result
    ///     price 10 20 30             price      price 10 20 30
    ///                                price[2]   price 20
    Status XPath(Str const& path, Ptr<Table>& result, char separator = '/') const;

    /// The first value that the path reaches, its body shared; an empty cell when there is none.
    ///
    /// An empty path, or one whose first step stops the walk, gives a table cell that shares this table's
    /// data. `defaultValue` is never used. Never changes this table.
    ///
    /// Cost: looks no further than the first value, and at each table once for each step.
    Cell atXPath(Str const& path, Cell const& defaultValue, char separator = '/') const;

    /// The value at the path, to read or assign; the last step stands for item 1 unless it has a number.
    ///
    /// With `create` false, the steps before the last are walked as above, and the value must lie within
    /// the item count of the first table reached; an index that lacks it is added or grown all the same.
    /// With `create` true, each step adds the index that a table lacks, with a new empty table of the
    /// step's name in item 1, and grows indices to the items it names; no table is put in place of another
    /// value. A step "name[n]" before the last so leads on only for n = 1, or where item n holds a table:
    /// "a[2]/b" in an empty table adds index a and raises.
    ///
    /// A step that stops the walk before the last stops it here, too, without a failure: in "cfg[x]/size"
    /// nothing is walked, and `size` is written in this table itself. Check paths that come from outside
    /// with TblPath::currentPath().
    ///
    /// Returns a reference into the addressed table, valid until that grows. Raises Except "No value at
    /// specified xpath 'PATH'" when the steps before the last, whose work remains, reach no table first,
    /// the last step's number cannot be read, or the value lies beyond the table's item count without
    /// `create`. Raises std::length_error or std::bad_alloc for an item beyond any memory; all that the
    /// steps made is then gone again.
    Cell& atXPath(Str const& path, bool create, char separator = '/');
    /// Does not compile: a number, a separator, an enumerator or a text literal in the place of `create` would count as
    /// true. Write `Cell(42)` for a default value, and `create` before a separator.
    template <typename T,
              typename = std::enable_if_t<
                  (std::is_arithmetic<T>::value && !std::is_same<T, bool>::value) ||
                  std::is_pointer<T>::value || std::is_null_pointer<T>::value || std::is_enum<T>::value>>
    Cell& atXPath(Str const&, T, char = '/') {
        static_assert(sizeof(T) == 0, "write atXPath(path, create, separator) with a bool, or "
                                      "atXPath(path, Cell(value)) for a default value");
        return at(std::size_t(0), std::size_t(0));
    }

    /// Keeps `value`, sharing its body, at a path with separator '/' in this table's attributes, which
    /// are made as needed.
    ///
    /// Returns Ok. Raises as atXPath() with `create` true; attributes made for a path that raises Except
    /// stay.
    Status setAttribute(Str const& path, Cell const& value);
    /// Makes `value` share the body of the first value at a path in this table's attributes, an empty
    /// cell when there is none, also on a table whose attributes nothing has used. Leaves it as it was only
    /// when setAttributes() has taken a table without a data body. Always returns Ok.
    Status getAttribute(Str const& path, Cell& value) const;

    /// @}

    /// @name Whole-table operations
    ///
    /// Each reads this table and an operand, builds a new table and makes `result` refer to it; what
    /// `result` referred to before is released, never written to. The new table shares the cells of its
    /// inputs, nested tables included, and has empty attributes. Inputs are never changed. A table is
    /// read as a rectangle: positions that a short index lacks are empty cells; a table none of whose
    /// indices has an item counts as one without indices. `result` may be a handle to this table or to
    /// the operand, even the last one, unless said otherwise.
    ///
    /// Unless said otherwise a null operand raises Except "No operand table provided" before anything
    /// happens, and the cost is linear in the cells read and placed. Where names are matched "by cell",
    /// the operand's name cell is compared as it is; "by text", a string cell is, too, also one that
    /// textCell() made, and of any other the cell that Cell(Str const&) makes of its text.
    ///
    /// @{

    /// Puts the operand's indices behind this table's, or over those of the same name.
    ///
    ///     this      operand     byName false            byName true
    ///     A 1       B 7 8       A 1 | B 2 | B 7 8 | C 9 -     A 1 | B 7 8 | C 9 -
    ///     B 2       C 9
    ///
    /// (indices side by side, each with its name first; "-" is an empty cell). This table's indices are
    /// padded to its item count, the operand's to its own, so the result need not be rectangular. With
    /// `byName` an operand index replaces the items of the first result index whose name it equals
    /// (matched by cell, also among the indices that earlier operand indices have added), as many as the
    /// operand has items; items beyond are kept. An operand index without a match is added at the end.
    ///
    /// The result is named "THIS and OPERAND" and is there from the start. Always returns Ok.
    Status merge(Ptr<Table const> const& operand, Ptr<Table>& result, bool byName) const;

    /// Fills whole indices with one value: for each operand index, item 0 names the index and item 1 is
    /// the value.
    ///
    ///     this          operand   count -1                 count 5
    ///     A 1 2 3       X 0       A 1 2 3 | X 0 0 0        A 1 2 3 | X 0 0 0 0
    ///     X 4 5 6
    ///
    /// Each named index gets `count` items, its name included, but never fewer than this table's item
    /// count (so -1 stands for that); an index that this table lacks is added at the end. An operand
    /// index without item 1 fills with empty cells; items 2 and beyond are not read. Of two operand
    /// indices of one name the later one's value remains.
    ///
    /// The result is named "THIS and THIS". Returns Ok, or Error "Fill Table must contain two rows" when
    /// no operand index has two items (`result` is then left as it was). Raises std::bad_alloc when
    /// there is no memory for `count` items.
    Status fill(Ptr<Table const> const& operand, Ptr<Table>& result, int count) const;

    /// Adds the operand's rows below this table's, index by index of the same name.
    ///
    ///     this        operand     addIndices false      addIndices true
    ///     A 1 2       A 5 6       A 1 2 5 6 | B 3 4     A 1 2 5 6 | B 3 4 | C - - 7 8
    ///     B 3 4       C 7 8
    ///
    /// Names are matched by text. With `addIndices` an operand index that this table lacks is added,
    /// named by the cell that it was looked for by; otherwise it is left out. An index of this table
    /// that the operand lacks stays as long as it was. Of two operand indices of one name the later
    /// one's rows remain.
    ///
    /// With `distinct` rows that repeat an earlier row, the names row included, are removed, and every
    /// index gets as many items. Two rows repeat each other when the display texts of their cells, each
    /// behind a colon, make up the same text: "a:" and "b" repeats "a" and ":b". Numbers are displayed
    /// with 17 digits there, so different numbers differ. A nested table may be displayed several times,
    /// and is to display the same each time.
    ///
    /// The result is named "OPERAND and THIS". Always returns Ok. Raises Except "No append table
    /// provided" for a null operand, or else "Result table cannot be same as 'this' table" when `result`
    /// refers to this table's data; `result` is then left as it was.
    Status append(Ptr<Table const> const& operand, Ptr<Table>& result, bool addIndices,
                  bool distinct) const;

    /// Lays the operand over a copy of this table, cell over cell, matching indices by cell.
    ///
    ///     this          operand       emptyOverwrites false        true
    ///     A 1 2 3       A 9 - 7       A 9 2 7 | B 4 5 6            A 9 - 7 | B 4 5 6
    ///     B 4 5 6
    ///
    /// With `matchedOnly` operand indices that this table lacks are left out; otherwise they are added
    /// at the end, the last one first (one of which no cell is laid is not added). An empty operand cell
    /// leaves what lies beneath, unless `emptyOverwrites`; it never replaces a nested table.
    /// `operandItems` lays as many items as the operand has, otherwise as many as this table has.
    ///
    /// A nested table of the operand is laid over the nested table beneath, or over a new empty one, by
    /// the same rules; the result holds the new table, and neither input's nested table changes.
    ///
    /// Of two operand indices of one name the second is laid first, so that the first one's cells
    /// win; where this table lacks the name, both are added.
    ///
    /// The result is named after the operand. A null operand gives a copy of this table, padded to a
    /// rectangle and named after it. Always returns Ok. Raises Except "Result table cannot be same as
    /// 'this' table" when `result` refers to this table's data; `result` is then left as it was.
    Status overlay(Ptr<Table const> const& operand, Ptr<Table>& result, bool matchedOnly,
                   bool emptyOverwrites, bool operandItems) const;

    /// Picks indices by name, in the operand's order: for each operand index, item 0 is the name
    /// (matched by text) and item 1, unless empty, a new name.
    ///
    ///     this                    operand       result                  invert
    ///     A 1 2 | B 3 4 | C 5 6   B | A Z       B 3 4 | Z 1 2           C 5 6
    ///
    /// A name that this table lacks is skipped, or with `keepUnmatched` gives an index of its name
    /// alone. Each picked index is named by the operand's cell and padded to this table's item count.
    ///
    /// With `invert` the indices that the operand does not name are picked, in this table's order, each
    /// named by the cell that it would be looked for by; those whose name has no text only with
    /// `keepUnmatched`.
    ///
    /// With `distinct` rows that equal an earlier row, the names row included, are removed; rows are
    /// equal when, in every index, the earlier cell equals the later by Cell::compare() with flag false.
    ///
    /// The result is named after this table, or "Distinct". Returns Ok, or the failure of the conversion
    /// when a name has no text (`result` is then left as it was). Raises Except "Select items must be
    /// specified as indices not items in the selection table" when an operand index has more than two
    /// items.
    ///
    /// Cost: linear. With `distinct` an index in which cells may equal cells of other content (numbers next
    /// to each other, dates beside numbers, several sorts of empty cells) takes some look-ups more for each
    /// row, and each sort of such cells in a row may double them; of more than 16 such indices (4 with dates)
    /// only so many are looked up, and rows that agree in them are compared one by one.
    Status select(Ptr<Table const> const& operand, Ptr<Table>& result, bool keepUnmatched, bool distinct,
                  bool invert) const;

    /// Picks rows by value, one operand index per condition: item 0 names the index to test (matched by
    /// text), the other items are the values.
    ///
    ///     this                operand      exclude false         exclude true
    ///     A 2 1 2 3           A 1 2        A 1 2 2               A 3
    ///     B u v w x                        B v u w               B x
    ///
    /// Every condition has as many values as the longest, those it lacks being empty. Without `exclude`
    /// the rows that equal a value by `row.compare(value, false)` are listed value by value, a row that
    /// equals two values twice. With `exclude` the rows whose text equals the text of a value are
    /// dropped, and unless `keepEmpty` those whose text is empty; the others stay in order. Conditions
    /// work one after the other, each on what the one before left. A condition on an index that the
    /// table lacks leaves no row, or with `exclude` every row. The names row always stays.
    ///
    /// The result is named after this table. Returns Ok, also for an operand without indices (`result`
    /// is then left as it was). A condition whose name has no text fails with that conversion's status,
    /// unless rows were tested all the same; it leaves `result` as it was, and the next condition works
    /// on what `result` holds then, or the filter ends with that status when that is null.
    ///
    /// Rows whose cell is a table have no text, so `exclude` drops them unless `keepEmpty`.
    ///
    /// Cost of each condition: linear in cells and values, and in the rows listed: 3,000 equal rows picked
    /// by 3,000 equal values make 9,000,000 rows.
    Status filter(Ptr<Table const> const& operand, Ptr<Table>& result, bool keepEmpty,
                  bool exclude) const;

    /// Turns indices into rows: item i of index j becomes item j of index i.
    ///
    ///     A 1 2       A B | 1 3 | 2 -
    ///     B 3
    ///
    /// The result is named after this table. Always returns Ok.
    Status transpose(Ptr<Table>& result) const;

    /// Lists the data rows in the order of one or more key indices.
    ///
    ///     this          operand    ascending      descending
    ///     A 3 1 2 1     A          A 1 1 2 3      A 3 2 1 1
    ///     B w x y z                B x z y w      B w y x z
    ///
    /// The operand names the keys, the most significant first (matched by text with this table's names):
    /// as several indices of one item each, otherwise as the items of its first index. Rows that are
    /// equal in every key keep their order. The order is that of Cell::operator<, empty cells (also
    /// texts without characters and numbers that are not valid) before all others.
    ///
    /// Where a key index's order and equality disagree, rows are lost or repeated, with Ok: a row is listed
    /// once for each distinct value that it equals, and errors and tables precede or follow no value. So
    /// a column with NaN loses rows, a key index [error, 5, "x", 7] leaves one row of four, and rows whose
    /// numbers are next to each other in the double grid are listed once for each of them, anew by every
    /// key. Whoever sorts what others have filled in compares `result->items(0)` with this table's, or
    /// keeps errors and tables out of key indices. The order among tables, errors and texts that are dates
    /// beside numbers is unspecified, but always the same for the same rows.
    ///
    /// The result is named after this table. Returns Ok; Error "Sort key not found" when the operand has
    /// no key with a text (`result` is then left as it was); or Error "Key not found" for an empty key
    /// or one that names no index: `result` then holds the rows as sorted by the keys behind it, or is
    /// left as it was when there are none. Keys without a text are skipped.
    ///
    /// Cost of each key: n log n in the rows, and linear in the rows listed; for an index with tables or
    /// with dates beside numbers some twenty times that of others (3 s for a million rows). The cells are
    /// placed once.
    Status sort(Ptr<Table const> const& operand, Ptr<Table>& result, bool ascending) const;

    /// Lists how `right` differs from this table, the left one: one item for each difference in each of
    /// the indices "Xpath", "Left" and "Right".
    ///
    ///     this         right        result
    ///     x 1 2        x 1 3        Xpath /x[2] /y[0]   /y[1]
    ///     y 7                       Left  2     y       7
    ///                               Right 3     missing missing
    ///
    /// Indices are paired by name (matched by text), those without a name that has a text by position.
    /// Cells are compared by `left.compare(right, flag)`. A position counts as missing on a side that
    /// has no such index or whose item count does not reach it; empty cells are never missed. Two nested
    /// tables at one position are compared in their turn, the path leading on ("/t[1]/u[2]"); a path in
    /// an index without a name begins anew ("[2]"). A table with two indices of one name differs from
    /// itself where these two differ, since both are paired with the first.
    ///
    /// The differences at positions of this table come first, in its order, then those of positions that
    /// only `right` has; in nested tables likewise, at the place of the cell that holds them.
    ///
    /// The result is named "THIS and RIGHT"; it has no indices when nothing differs. Always returns Ok.
    Status compare(Ptr<Table const> const& right, Ptr<Table>& result, bool flag) const;

    /// True when compare() with flag false finds no difference; with `flag` true the answer is false at
    /// once.
    ///
    /// Stops at the first difference.
    bool match(Ptr<Table const> const& right, bool flag) const;

    /// Combines this table with `right` cell by cell at the positions that the template marks.
    ///
    ///     this       right        templ       op "+"
    ///     A 1 2      A 10 20      - %D -      A 11 2
    ///
    /// Where the template holds the text "%D" the result holds `left.operation(right, op)`; where it
    /// holds a nested table both sides must hold one too, which are combined under it; elsewhere the
    /// result holds this table's cell. What Cell::operation() gives for cells that do not combine is
    /// stored as it is.
    ///
    /// All three tables must have the same number of indices and the same item count. The result is
    /// named "OP operation " and rectangular. Returns Ok. Raises Except "Left and Right operands do not
    /// have matching indices" (or "... items"), "Template and operands do not have matching indices" (or
    /// "... items"), both before `result` changes, except within nested tables; or "Mismatched table
    /// structure - expected table at index I item J", which leaves in `result` what was computed so far;
    /// I and J count within the nested table where it was met. A null `right` or `templ` raises as usual.
    Status operation(Ptr<Table const> const& right, Str const& op, Ptr<Table const> const& templ,
                     Ptr<Table>& result) const;

    /// Builds a template from two tables of one shape: "%D" where both hold numbers, a nested template
    /// where both hold tables, an empty cell elsewhere.
    ///
    /// The result has an empty name. Returns Ok, or Error "do not have matching indices" or "do not have
    /// matching items": for the tables themselves `result` is left as it was; for nested tables the
    /// template ends with an empty cell at their position.
    Status makeTemplate(Ptr<Table const> const& other, Ptr<Table>& result) const;

    /// Sums the numbers at the positions that the template marks with "%D", those in nested tables under
    /// nested templates included, index by index; `op` must be "+".
    ///
    /// `total` is set to 0 first. A marked cell that is no number adds 0. The template may be smaller
    /// than this table. Returns Ok. Raises Except "Number of indices in template exceeds original data
    /// set", "Number of items in template exceeds original data set", "Mismatched table structure" where
    /// the template holds a table and this one does not, or "Unsupported Unary operation" for another
    /// `op` at the first marked or nested position; `total` then holds the sum so far.
    Status unaryOperation(Str const& op, Ptr<Table const> const& templ, double& total) const;

    /// @}

    /// Writes the table and all tables nested in it, one line per index, and returns `os`.
    ///
    /// Nested tables come first, each headed by a number that its parent's line refers to; the table
    /// itself is headed by its name when `number` is -1, otherwise by `number`. Nested tables are
    /// numbered from `number` + 1 in index-then-item order; a nested table numbers its own from its own
    /// number + 1. Numbers wrap around at the largest int, and a nested table whose number comes to -1, as
    /// below a `number` of -2, is headed by its name though its parent's line refers to it as -1.
    ///
    ///     Table - 0
    ///     Index 0 <eur> 3 4
    ///     Table - prices
    ///     Index 0 <fruit> apple [Empty] `Table 0'
    ///           1 <price> ## 0 1076428800
    ///
    /// The line of an index ends with a blank (not shown here), unless it has no items: then it is "<>".
    /// Every line ends with a newline and a flush. Cells are written by Cell::display(), numbers under
    /// the stream's own formatting. A handle without a data body writes "Null table" and a newline. A
    /// derived class may override it: nested tables are written through this virtual call. An override
    /// that calls this one takes up the stack for each such table on the way down; coming back to one
    /// more than 500 calls down raises "Table contains itself".
    virtual std::ostream& display(std::ostream& os, int number = -1) const;

protected:
    /// The data body, null when there is none.
    Ptr<TableImplementation> getImplementation() const;

private:
    friend class TableBodies;
    friend class NestedTable;

    Ptr<TableImplementation> data_;
    Detail::LateBody attributes_;
};

} // namespace QX
