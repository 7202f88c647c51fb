#pragma once

#include "qx/detail/arithmetic.h"
#include "qx/detail/cellcontent.h"
#include "qx/detail/failure.h"
#include "qx/detail/number.h"
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

namespace Detail {

template <typename T>
inline constexpr bool isCharacterType =
    std::is_same<T, char>::value || std::is_same<T, wchar_t>::value ||
#if defined(__cpp_char8_t)
    std::is_same<T, char8_t>::value ||
#endif
    std::is_same<T, char16_t>::value || std::is_same<T, char32_t>::value;

} // namespace Detail

/// The value at one position of a table: nothing, a text, a number, a nested table or an error.
///
/// A cell is a small handle over a body that never changes. Copying or assigning a cell, or storing it
/// in a table, shares the body: it costs one increment and allocates nothing. An empty cell has no body,
/// and numbers and texts of up to 15 bytes are held in the cell itself. Only the nested table of a table
/// cell can change, and then changes for every cell that shares it.
///
/// All conversions are `Status get(T& out) const`: they never throw for a value that does not fit but
/// return an Error with code -1, and leave `out` untouched unless said otherwise below. Trying is cheap: a
/// conversion that the kind does not support allocates nothing until the message is asked for. Which kind
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
    /// Holds what a body holds, sharing a long text, a table or an error; for the library's own use. A
    /// null body gives an empty cell.
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
    /// So no cell that is made here holds a text that reads as a number: "007" becomes 7. textCell(), in
    /// <qx/text.h>, makes one that does. Uses no stream; allocates nothing but the body of a text of more
    /// than 15 bytes, or that of an error and its message.
    Cell(Str const& text);
    /// Makes a valid number of any double, NaN and infinities included; allocates nothing. Integers
    /// convert to it, and so does a bool: true is 1, which get(bool&) reads as true.
    Cell(double value) noexcept : content_(value, true) {}
    /// A character or a kind is no number: neither compiles.
    template <typename T, std::enable_if_t<Detail::isCharacterType<T>, int> = 0>
    Cell(T character) = delete; // write Cell(Str("x")) for a text, Cell(int(character)) for its code
    template <typename T, std::enable_if_t<std::is_same<T, CellType>::value, int> = 0>
    Cell(T kind) = delete; // write Cell() for an empty cell, Cell(int(kind)) for the number of a kind
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
    Status get(double& out) const {
        if (!content_.isNumber()) {
            return Detail::failure(notDouble);
        }
        out = content_.number();
        return Status();
    }
    /// Reads a number with its validity.
    Status get(AnalyticDouble& out) const {
        if (!content_.isNumber()) {
            return Detail::failure(notAnalyticDouble);
        }
        out = content_.analytic();
        return Status();
    }
    /// Reads a number truncated toward zero.
    ///
    /// `out` is written for every number; beyond the range of an int, and for NaN, it is -2147483648.
    /// Returns Error "Integer not equivalent to number" unless the number is whole, which in all of this
    /// class means: within one machine epsilon (2.2e-16), relative to its magnitude but to no less than 1,
    /// of `out`. So infinities and every number of a magnitude up to 2.2e-16 count as whole (the latter
    /// give 0), and 3e9 does not.
    Status get(int& out) const;
    /// Reads a truth value: a number is true unless 0 (NaN is true), a text when it is "TRUE" in any
    /// letter case; false for empty and error cells.
    Status get(bool& out) const;
    /// Reads a text: that of a string cell, "" of an empty cell, the marked message ("#Err: ...") of an
    /// error cell. The message of an Ok status has no mark, so it does not read back as an error.
    ///
    /// A number gives, in this order: "NULL" when it is not valid and `precision` is not 0; its exact
    /// form ("## 0 1076428800") when `precision` is -1 and it is not whole; exactly `precision` digits
    /// after the point when `precision` is above 0 and it is not whole; otherwise Str::asString() of it.
    /// Precision 0 is the ordinary text. Other kinds ignore `precision`. The text takes as many bytes as
    /// asked for, and raises std::bad_alloc where there is no memory for them.
    Status get(Str& out, int precision) const {
        if (!content_.isText()) {
            return getOther(out, precision);
        }
        out.assign(content_.text().data(), content_.text().size());
        return Status();
    }
    /// Reads the status of an error cell: always an Error with code -1 and the message without marks, also
    /// where the cell was made of an Ok status.
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
    /// is not valid. The stream's own formatting of doubles and ints applies.
    ///
    /// Through Cell(Str const&), what a stream in decimal, of the classic locale and without a width
    /// writes reads back as an equal cell for texts (but those of textCell() that read as something else),
    /// empty cells, numbers in exact form, and whole numbers
    /// of which the stream's precision shows all digits (10 shows those of every int, the usual 6 those
    /// below a million). What does not: tiny numbers, which count as whole (1.054571817646156e-34 is
    /// written as 1.05457e-34, unless the precision is 17); infinities and "[Undefined]", which read as
    /// texts; tables and errors; and numbers on a stream that groups digits, has a decimal comma, writes
    /// hexadecimal or fills up a width.
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
    /// or doubles of one sign whose bits are at most one apart (0.1 + 0.2 and 0.3, NaNs of one bit
    /// pattern or of two adjacent ones, infinity and the NaN next to it); validity does not count. The same
    /// table means the same Table object, not equal contents.
    bool compare(Cell const& other, bool flag) const {
        return hasNumbers(other) ? Detail::equalNumbers(content_.number(), other.content_.number())
                                 : equals(other, flag);
    }

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
    bool operator<(Cell const& other) const {
        return hasNumbers(other) ? content_.number() < other.content_.number() : isBefore(other);
    }

    /// Computes this cell, `op`, `other`; neither operand changes.
    ///
    /// Two numbers combine by "+", "-", "*" and "/" as AnalyticDouble does; "%" truncates both to int
    /// and gives the remainder with the sign of the left one (not valid when the right one truncates to
    /// 0; 0 for -2147483648 % -1). It alone does not look at validity: a 7 that is not valid % 4 is a valid
    /// 3. Any other right operand or operator on a number gives the string cell
    /// "that cell is not numeric". On any other kind it gives an error cell "Cell operation not
    /// supported for this type".
    Cell const operation(Cell const& other, Str const& op) const {
        Detail::Operator const known =
            hasNumbers(other) ? Detail::operatorOf(op) : Detail::Operator::Unknown;
        return known == Detail::Operator::Unknown
                   ? Cell(Detail::CellContent(notComputed()))
                   : Cell(Detail::operate(known, content_.analytic(), other.content_.analytic()));
    }

private:
    friend class CellImplementation;

    explicit Cell(Detail::CellContent&& content) noexcept : content_(std::move(content)) {}

    /// True when this cell and `other` are both numbers, for which the header alone has the answers.
    bool hasNumbers(Cell const& other) const noexcept {
        return content_.isNumber() && other.content_.isNumber();
    }
    /// The failures of get() of what is no number. They lie in the library, so that no status of them
    /// outlives a plugin that read a cell.
    static char const notDouble[];
    static char const notAnalyticDouble[];
    /// get() of a text from what is no string cell.
    Status getOther(Str& out, int precision) const;
    /// compare().
    bool equals(Cell const& other, bool flag) const;
    /// operator<.
    bool isBefore(Cell const& other) const;
    /// What operation() gives where nothing can be computed.
    QX_COLD Detail::CellContent::Bits notComputed() const;

    Detail::CellContent content_;
};

/// Writes the cell as its display() does.
QX_API std::ostream& operator<<(std::ostream& os, Cell const& cell);

/// Writes the number under the stream's own formatting, whatever its validity.
QX_API std::ostream& operator<<(std::ostream& os, AnalyticDouble const& number);

} // namespace QX
