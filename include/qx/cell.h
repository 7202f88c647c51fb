#pragma once

#include "qx/cellcontent.h"
#include "qx/export.h"
#include "qx/ptr.h"
#include "qxbase/analyticdouble.h"
#include "qxbase/status.h"
#include "qxbase/str.h"
#include "qxdatetime/date.h"

#include <iosfwd>
#include <type_traits>
#include <utility>

namespace QX {

class CellImplementation;
class Table;

/// The value at one position of a table: nothing, a text, a number, a nested table or an error.
///
/// A cell is a small handle over a body that never changes. Copying or assigning a cell, or storing it
/// in a table, shares the body: it costs one increment and allocates nothing. An empty cell has no body,
/// and numbers and texts of up to 15 bytes are held in the cell itself. Only the nested table of a table
/// cell can change, and then changes for every cell that shares it.
///
/// All conversions are `Status get(T& out) const`: they never throw for a value that does not fit but
/// return an Error with code -1, and leave `out` untouched unless said otherwise below. Which kind
/// converts to what:
///
///     kind      Str    bool   double, AnalyticDouble   int     Date     Status   Ptr<Table>
///     Empty     ""     false  -                        -       -        -        -
///     String    text   yes    -                        -       parsed   -        -
///     Numeric   yes    yes    yes                      whole   yes      -        -
///     Table     -      -      -                        -       -        -        yes
///     Error     yes    false  -                        -       fails    yes      -
///
/// where "-" is the failure "Cell translation to X not supported for this type", X being date, const
/// table, table, status, string, bool, integer, AnalyticDouble or double.
///
/// When memory runs out, std::bad_alloc is raised and every cell is left as it was. A cell and all cells
/// that share its body belong to one thread at a time.
class QX_API Cell {
public:
    /// The kinds of cells.
    enum CellType {
        EmptyCell = 0,   ///< nothing
        StringCell = 1,  ///< a text
        NumericCell = 2, ///< a double with a validity flag
        TableCell = 3,   ///< a nested table
        ErrorCell = 4    ///< a status
    };

    /// Makes an empty cell; allocates nothing.
    Cell() noexcept = default;
    /// Shares the body of `other`.
    Cell(Cell const& other) noexcept : content_(other.content_) {}
    /// Takes over the body of `other`, which becomes an empty cell.
    Cell(Cell&& other) noexcept : content_(std::move(other.content_)) {}
    /// Holds what a body holds, sharing that of a table or an error; for the library's own use. A null
    /// body gives an empty cell.
    Cell(Ptr<CellImplementation> const& body);
    /// Makes the kind of cell that `text` reads as, the first of these that fits:
    ///
    /// - a number in decimal: optional white space, sign, digits with or without a point, and exponent,
    ///   as in " -12.5e3", with nothing behind it; never hexadecimal, "inf" or "nan", and the same in
    ///   every locale. A number too small for a double is 0, one too large is no number;
    /// - a number in exact form: "##", any one character, then the low and the high 32 bits of the
    ///   double as two signed decimal ints ("## 0 1076428800" is 12.5); it is what operator<< writes;
    /// - a ratio: "[Numeric]", any one character, then two ints ("[Numeric] 1 4" is 0.25);
    /// - an error: "#Err: " or "#Critical: " in any letter case, then anything; the status is an Error
    ///   whose message is the whole text;
    /// - an empty cell: "[Empty]", exactly;
    /// - otherwise a string cell with that text, the empty text included.
    ///
    /// So no cell holds a text that reads as a number: "007" becomes 7. Uses no stream; allocates
    /// nothing but the body of a text of more than 15 bytes, or that of an error and its message.
    Cell(Str const& text);
    /// Makes a valid number of any double, NaN and infinities included; allocates nothing.
    Cell(double value) noexcept : content_(value, true) {}
    /// Makes a number with the validity of `value`; allocates nothing.
    Cell(AnalyticDouble const& value) : content_(value) {}
    /// Makes an error cell that holds `status`, whatever its state; an Ok status makes an error cell,
    /// too.
    Cell(Status const& status);
    /// Makes a table cell that shares `table`: changes made through either are seen through the other. A
    /// null handle gives a new empty table named "Null Table".
    Cell(Ptr<Table> const& table);
    /// Makes a table cell that shares a table of a derived class, whose display() then writes the cell.
    template <typename T, typename = std::enable_if_t<std::is_convertible<T*, Table*>::value>>
    Cell(Ptr<T> const& table) : Cell(Ptr<Table>(table)) {}
    /// Makes a table cell that holds its own deep copy of `table`, as Table::clone() makes it. A null
    /// handle, or a table without a data body, gives a new empty table named "Null Table". Raises Except
    /// "Table contains itself" as clone() does.
    Cell(Ptr<Table const> const& table);
    /// Releases the body.
    virtual ~Cell() {}

    /// Shares the body of `other` and releases the one held so far.
    Cell const& operator=(Cell const& other) noexcept {
        content_ = other.content_;
        return *this;
    }
    /// Takes over the body of `other`, which becomes an empty cell unless it is this one.
    Cell const& operator=(Cell&& other) noexcept {
        content_ = std::move(other.content_);
        return *this;
    }

    /// The kind of this cell.
    CellType isA() const { return static_cast<CellType>(content_.kind()); }
    /// True for an empty cell, a string cell without characters and a number that is not valid.
    bool empty() const { return content_.isEmpty(); }

    /// Reads a number, whatever its validity.
    Status get(double& out) const;
    /// Reads a number with its validity.
    Status get(AnalyticDouble& out) const;
    /// Reads a number truncated toward zero.
    ///
    /// `out` is written for every number; beyond the range of an int, and for NaN, it is -2147483648.
    /// Returns Error "Integer not equivalent to number" unless the number is whole: within one machine
    /// epsilon, relative to its magnitude, of `out`. So infinities count as whole and 3e9 does not; this
    /// is what "whole" means in all of this class.
    Status get(int& out) const;
    /// Reads a truth value: a number is true unless 0 (NaN is true), a text when it is "TRUE" in any
    /// letter case; false for empty and error cells.
    Status get(bool& out) const;
    /// Reads a text: that of a string cell, "" of an empty cell, the marked message ("#Err: ...") of an
    /// error cell.
    ///
    /// A number gives, in this order: "NULL" when it is not valid and `precision` is not 0; its exact
    /// form ("## 0 1076428800") when `precision` is -1 and it is not whole; exactly `precision` digits
    /// after the point when `precision` is above 0 and it is not whole; otherwise Str::asString() of it.
    /// Precision 0 is the ordinary text. Other kinds ignore `precision`. The text takes as many bytes as
    /// asked for, and raises std::bad_alloc where there is no memory for them.
    Status get(Str& out, int precision) const;
    /// Reads the status of an error cell: always an Error with code -1 and the message without marks.
    Status get(Status& out) const;
    /// Reads the nested table, shared: changes made through `out` are seen through this cell. A cell
    /// made from a table const gives out its own copy.
    Status get(Ptr<Table>& out) const;
    /// Reads the nested table, shared.
    Status get(Ptr<Table const>& out) const;
    /// Reads a date: a string cell whose text is YYYY-MM-DD, or a number truncated to days since
    /// 1970-01-01.
    ///
    /// `out` is written for string, error and numeric cells also when it is no valid date. Returns then
    /// Error "String TEXT is not a recognised date" (an error cell counts as an empty text) or "Not a
    /// valid date".
    Status get(Date& out) const;

    /// Writes the printed form and returns `os`: "[Empty]", the text of a string cell, nothing for an
    /// error cell, a nested table as Table::display() with number -1.
    ///
    /// A number is written as a double when it is whole, otherwise in exact form; "[Undefined]" when it
    /// is not valid. The stream's own formatting of doubles and ints applies. The exact form in decimal
    /// and that of an empty cell read back through Cell(Str const&) as equal cells, and so do whole
    /// numbers when the stream's precision shows all their digits (10 always do, the usual 6 show those
    /// below a million); infinities read back as texts.
    virtual std::ostream& display(std::ostream& os) const;

    /// True when this cell equals `other`; not symmetric, since the left cell decides:
    ///
    ///     this \ other   Empty   String           Numeric      Table        Error
    ///     Empty          true    text empty       not valid    false        false
    ///     String         false   texts equal      same date    false        this text empty
    ///     Numeric        false   same date        neighbours   false        false
    ///     Table          false   false            false        same table   false
    ///     Error          false   false            false        false        true
    ///
    /// `flag` true compares texts without regard to the case of ASCII letters. A text has a date only
    /// when it is YYYY-MM-DD; a number's date is get(Date&), valid or not. Neighbours are equal doubles,
    /// or doubles of one sign that are next to each other (0.1 + 0.2 and 0.3), or NaNs of one bit
    /// pattern; validity does not count. The same table means the same Table object, not equal contents.
    bool compare(Cell const& other, bool flag) const;

    /// True when this cell sorts before `other`:
    ///
    ///     this \ other   Empty   String                 Numeric          Table      Error
    ///     Empty          true    true                   true             true       true
    ///     String         true    text before            other's date     true       false
    ///                                                   before this
    ///     Numeric        false   no date, or other's    less             false      false
    ///                            date before this
    ///     Table          false   false                  false            other is   false
    ///                                                                    smaller
    ///     Error          false   false                  false            false      false
    ///
    /// Texts order by unsigned byte. A table is smaller when its largest item count, or else its index
    /// count, is less; a table without a data body has none of either.
    ///
    /// This is not a strict weak order: an empty cell is before itself, and a string cell and an empty
    /// cell are each before the other. Don't hand it to algorithms that rely on one.
    bool operator<(Cell const& other) const;

    /// Computes this cell, `op`, `other`; neither operand changes.
    ///
    /// Two numbers combine by "+", "-", "*" and "/" as AnalyticDouble does; "%" truncates both to int
    /// and gives the remainder with the sign of the left one (not valid when the right one truncates to
    /// 0; 0 for -2147483648 % -1). Any other right operand or operator on a number gives the string cell
    /// "that cell is not numeric". On any other kind it gives an error cell "Cell operation not
    /// supported for this type".
    Cell const operation(Cell const& other, Str const& op) const;

private:
    friend class CellImplementation;

    explicit Cell(Detail::CellContent&& content) noexcept : content_(std::move(content)) {}

    Detail::CellContent content_;
};

/// Writes the cell as its display() does.
QX_API std::ostream& operator<<(std::ostream& os, Cell const& cell);

/// Writes the number under the stream's own formatting, whatever its validity.
QX_API std::ostream& operator<<(std::ostream& os, AnalyticDouble const& number);

} // namespace QX
