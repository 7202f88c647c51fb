#pragma once

#include "qx/ioerror.h"
#include "qx/ioexport.h"
#include "qx/iosource.h"
#include "qx/ptr.h"
#include "qx/table.h"

#include <cstddef>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace QX {

/// What the fields of a column become.
enum class CsvType {
    Guess,  ///< numbers where every field is one that is written back as it was, otherwise texts
    Text,   ///< string cells that hold each field byte for byte
    Number, ///< numbers; a field that is none stays a text
    Date    ///< string cells that hold the date as YYYY-MM-DD; a field that is none stays as it is
};

/// What becomes of rows that have not as many fields as the header.
enum class CsvRagged {
    Raise,    ///< any such row raises IoError
    PadShort, ///< a short row gets empty cells, a long one raises IoError
    Keep      ///< as before, but the extra fields of a long row go to further columns "column N"
};

/// How readCsv() reads.
struct CsvReadOptions {
    /// The table's name, and what messages call the input; a file's name when empty.
    std::string name;
    /// Stands between fields; no quote, CR or LF.
    char separator = ',';
    /// Encloses fields that hold separators, line ends or, doubled, quotes; '\0' for none.
    char quote = '"';
    /// Whether the first row names the columns, which are otherwise called "column 1", "column 2" ...
    bool header = true;
    /// Whether blanks and tabs around a field don't belong to it, unless they are quoted.
    bool trim = false;
    /// The type of columns that `types` lacks.
    CsvType type = CsvType::Guess;
    /// Types by the names of columns; one that no column has raises IoError.
    std::map<std::string, CsvType> types;
    /// Whether numbers may be guessed although they lose zeros at the end: 12.50 is then 12.5.
    bool dropZeros = false;
    /// How columns of type Date write theirs, as QX::Date reads it; empty for YYYY-MM-DD.
    std::string dateFormat;
    /// Whether a field that doesn't fit the Number or Date asked for raises IoError.
    bool strict = false;
    /// The unquoted fields that become empty cells.
    std::vector<std::string> empty = {""};
    /// What becomes of rows of another length.
    CsvRagged ragged = CsvRagged::PadShort;
    /// How many empty cells per field rows of differing length may cost, beside 100,000; more raises.
    std::size_t padding = 16;
    /// How many rows to read, without the header; nothing behind the last of them is asked for.
    std::size_t rows = Table::npos;
    /// Called after each piece of the input, with the number of rows so far.
    IoProgress progress;
};

/// What the fields of a column were, the empty ones apart.
struct CsvColumn {
    std::string name;             ///< as in the header
    CsvType type = CsvType::Text; ///< what the column is: Text, Number or Date
    std::size_t empty = 0;        ///< empty cells, those of short rows included
    std::size_t numbers = 0;      ///< numbers that are written back as they were
    std::size_t altered = 0;      ///< numbers that are not: 007, +5, 1.50, 1e5, digits beyond a double
    std::size_t dates = 0;        ///< dates YYYY-MM-DD, or in the column's format
    std::size_t texts = 0;        ///< everything else
    std::size_t oddLine = 0;      ///< where the first field stands that is odd in its column, or 0:
                                  ///< altered in any, and not of the column's type in other than texts
    std::string oddText;          ///< the beginning of that field, up to 40 bytes
};

/// What was met on the way.
struct CsvReport {
    std::vector<CsvColumn> columns; ///< one for each index of the table
    std::size_t rows = 0;           ///< rows read, without the header
    std::size_t shortRows = 0;      ///< rows with fewer fields than the header
    std::size_t firstShortLine = 0; ///< where the first of them begins, or 0
    std::size_t longRows = 0;       ///< rows with more
    std::size_t firstLongLine = 0;  ///< where the first of them begins, or 0
    std::size_t blankLines = 0;     ///< lines that were skipped
    std::size_t equalNames = 0;     ///< columns whose name an earlier one has, too
    bool byteOrderMark = false;     ///< whether a UTF-8 mark stood at the start
    bool complete = true;           ///< false when the input may go on behind the last row
};

/// Reads delimiter-separated text into a new table: the first row names the indices, each further one
/// becomes an item of every index.
///
///     fruit,zip,price        Table - prices
///     apple,00501,3          Index 0 <fruit> apple pear
///     pear,10115,4.5               1 <zip> 00501 10115
///                                  2 <price> 3 ## 0 1074921472
///
/// Nothing changes on the way: what writeCsv() makes of the table has the same bytes in every field. A
/// column is guessed to be of numbers when writeCsv() writes each of them as it was: decimal digits
/// with an optional minus, no zeros in front of or behind them and no more digits than a double tells
/// apart. One field other than that (00501, +49301234567, 1E5, 3.10, a name) leaves the column as it
/// stands in the file, as string cells that textCell() makes. `types` asks for numbers all the same.
///
/// Fields may be quoted; a quote inside an unquoted one is an ordinary character. Lines end with LF, CR
/// or CRLF; a UTF-8 byte order mark at the start is skipped, zero bytes and invalid UTF-8 pass. Blank
/// lines are skipped, except that they are rows with an empty cell where there is one column. Names may
/// be there twice. A name that reads as a number which is written like it names the index by that
/// number, so that Table::at("2024", 1) finds it.
///
/// Raises IoError for text behind a closing quote, a quote that is never closed, rows of another length
/// (CsvRagged), UTF-16 and gzip, no header row, options that contradict each other, and what the file
/// system says. There is no table then. `report`, when given, is filled, and tells what was read so far
/// when there is an error.
///
/// Cost: linear in the bytes and in the cells; beside the table, the memory of the longest field.
QXIO_API Ptr<Table> readCsv(ByteSource const& source, CsvReadOptions const& options = {},
                            CsvReport* report = nullptr);
/// Reads from the stream's buffer, up to the end unless a number of rows is set; what is taken beyond the
/// last row is lost to other readers of the stream.
QXIO_API Ptr<Table> readCsv(std::istream& in, CsvReadOptions const& options = {},
                            CsvReport* report = nullptr);
/// Reads a text in memory.
QXIO_API Ptr<Table> readCsvText(std::string_view text, CsvReadOptions const& options = {},
                                CsvReport* report = nullptr);
/// Reads a file, whose path is UTF-8 on every system; FIFOs and devices, too. The table is named after
/// the file, without its extension, unless the options name it.
QXIO_API Ptr<Table> readCsvFile(std::string const& path, CsvReadOptions const& options = {},
                                CsvReport* report = nullptr);

/// How writeCsv() writes.
struct CsvWriteOptions {
    /// What messages call the output.
    std::string name;
    /// Stands between fields; no quote, CR or LF.
    char separator = ',';
    /// Encloses fields where that is needed; '\0' for never, and a field that needs it raises IoError.
    char quote = '"';
    /// Whether to enclose every field that is not an empty cell.
    bool quoteAll = false;
    /// Whether to write the names of the indices as first row.
    bool header = true;
    /// What stands for an empty cell and a number that is not valid.
    std::string empty;
    /// Ends each row.
    std::string lineEnd = "\n";
    /// How many rows to write, without the names.
    std::size_t rows = Table::npos;
};

/// Writes a table as delimiter-separated text: one row of names and one for each further item, as a
/// rectangle.
///
/// A field is quoted when it holds a separator, a quote or a line end, begins or ends with a blank or a
/// tab, would be taken for an empty cell, or would begin the text with a byte order mark. Numbers have
/// as many digits as it takes to read the same double again: plain digits from 0.000001 to below 1e15,
/// else with an exponent; nan, inf and -inf are written so and read back as texts. An error is its
/// marked message, a nested table its printed form.
///
/// Texts that begin with =, +, - or @ are written as they are; a spreadsheet program may compute them.
///
/// Raises IoError when the stream does not take everything, and for a field that needs a quote where
/// there is none; what was written before remains.
QXIO_API void writeCsv(std::ostream& out, Table const& table, CsvWriteOptions const& options = {});
/// Writes into a text.
QXIO_API std::string writeCsvText(Table const& table, CsvWriteOptions const& options = {});
/// Writes into a file, whose path is UTF-8 on every system, in place of what it held.
QXIO_API void writeCsvFile(std::string const& path, Table const& table,
                           CsvWriteOptions const& options = {});

} // namespace QX
