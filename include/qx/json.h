#pragma once

#include "qx/ioerror.h"
#include "qx/ioexport.h"
#include "qx/iosource.h"
#include "qx/ptr.h"
#include "qx/table.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace QX {

/// What becomes of a whole number that would lose digits as a double: 9007199254740993, for one.
enum class JsonBig {
    Text,    ///< a string cell of its digits, which writeJson() writes as the same number again
    Nearest, ///< the nearest double
    Raise    ///< IoError is raised
};

/// How readJson() reads.
struct JsonReadOptions {
    /// What messages call the input; a file's path when empty.
    std::string name;
    /// Whether objects that writeJson() makes with `exact` become again what they were made of.
    bool exact = false;
    /// Whether there may be several values one after another, or none, as in a file of one value for
    /// each line; they are read as one array.
    bool sequence = false;
    /// Whether a key that is twice in one object raises IoError; otherwise both members are kept.
    bool uniqueKeys = false;
    /// What becomes of whole numbers that would lose digits.
    JsonBig big = JsonBig::Text;
    /// Called after each piece of the input, with the number of values so far.
    IoProgress progress;
};

/// What was met on the way.
struct JsonReport {
    std::size_t values = 0;     ///< nulls, booleans, numbers and strings
    std::size_t bigNumbers = 0; ///< whole numbers that would lose digits as a double
    std::size_t depth = 0;      ///< how deep the objects and arrays are nested
};

/// Reads a JSON text into a new table.
///
///     {"name": "Ann",             Table - {}
///      "tags": ["x", "y"],        Index 0 <name> Ann
///      "pets": [                        1 <tags> `Table 0'
///       {"kind": "cat"},                2 <pets> `Table 1'
///       {"kind": "dog", "age": 3}
///     ]}                          atXPath("pets/kind[2]", Cell()) is dog, "tags/value[1]" is x
///
/// - An object becomes a table named "{}": an index for each member, the key its name, the value item 1.
/// - An array of objects becomes a table named "[{}]": an index for each key, in the order in which they
///   first come, and an item for each object. A key that an object lacks leaves a number that is not
///   valid ("[Undefined]"), which is an empty cell, too. When fewer than an eighth of the cells would
///   have a member, or a key is twice in an object, it is held as the next kind.
/// - Any other array becomes a table named "[]" with one index, named "value", whose items are the
///   elements. An empty array has no index.
/// - null becomes an empty cell; true and false the string cells TRUE and FALSE, which Cell::get(bool&)
///   understands; a number the nearest double; a string a string cell that holds exactly its bytes.
/// - A value that is neither object nor array becomes a table named "$" with one index as of an array.
///
/// writeJson() writes the same values again: what may differ is white space, the spelling of numbers
/// (1.0 becomes 1) and, within arrays of objects, the order of members. For that, the strings "TRUE" and
/// "FALSE" and numbers held as texts are noted in the attribute "$json" of the table that holds them.
///
/// The text is UTF-8, with or without byte order mark. Raises IoError, with the place, for text that
/// is not JSON, numbers beyond the range of a double, invalid UTF-8, lone surrogates, a zero byte, UTF-16
/// and gzip, and what the file system says. There is no table then. `report`, when given, is filled.
///
/// Cost: linear; objects and arrays may be nested to any depth and take no stack.
QXIO_API Ptr<Table> readJson(ByteSource const& source, JsonReadOptions const& options = {},
                             JsonReport* report = nullptr);
/// Reads from the stream's buffer, up to the end.
QXIO_API Ptr<Table> readJson(std::istream& in, JsonReadOptions const& options = {},
                             JsonReport* report = nullptr);
/// Reads a text in memory.
QXIO_API Ptr<Table> readJsonText(std::string_view text, JsonReadOptions const& options = {},
                                 JsonReport* report = nullptr);
/// Reads a file, whose path is UTF-8 on every system; FIFOs and devices, too.
QXIO_API Ptr<Table> readJsonFile(std::string const& path, JsonReadOptions const& options = {},
                                 JsonReport* report = nullptr);

/// Where writeJson() puts line ends and blanks.
enum class JsonLayout {
    Rows,    ///< each element of the outermost array on a line of its own
    Lines,   ///< the elements of the outermost array alone, each on a line, without the array
    Compact, ///< all on one line
    Indented ///< each member and element on a line, four blanks deeper than what holds it
};

/// How writeJson() writes.
struct JsonWriteOptions {
    /// What messages call the output; a file's path when empty.
    std::string name;
    /// Where lines end.
    JsonLayout layout = JsonLayout::Rows;
    /// Whether everything about the table is written, so that readJson() with `exact` makes an equal one.
    bool exact = false;
    /// Whether a value that JSON has no place for raises IoError; otherwise it becomes the nearest one.
    bool strict = false;
    /// Whether bytes that are no UTF-8 become U+FFFD; otherwise they raise IoError.
    bool replaceInvalid = false;
};

/// Writes a table as JSON, after which there is a newline.
///
/// - A table named "{}" with no more than one item per index is an object, and one named "$" its value.
/// - A table named "[]" with one index, named "value", is an array of that index's items.
/// - Any other table is an array with an object for each row, which has a member for each index; one
///   without a name is called "column N", and a name that was there before gets " (2)", " (3)" ...
/// - An empty cell is null, the texts TRUE and FALSE are true and false, other texts strings, a number has
///   as many digits as it takes to read the same double again. A number that is not valid leaves out the
///   member of an object, and is null in an array.
/// - What JSON has no place for: NaN and infinities become null, and errors strings of the marked message,
///   unless `strict` is set; names other than those above and attributes are left out.
///
/// With `exact`, what does not come back of itself is written as an object: a table of another name or
/// shape, or with attributes, as {"$table": name, "$attributes": table, "$indices": [[name, item ...]
/// ...]}, and cells as {"$number": "nan"}, {"$undefined": value}, {"$error": message} or {"$bytes":
/// hexadecimal}. Tables that are held more than once are written each time.
///
/// Raises IoError when the stream does not take everything, for texts that are no UTF-8 and for a table
/// that contains itself; what was written before remains. Cost: linear; takes no stack for nested tables.
QXIO_API void writeJson(std::ostream& out, Table const& table, JsonWriteOptions const& options = {});
/// Writes into a text.
QXIO_API std::string writeJsonText(Table const& table, JsonWriteOptions const& options = {});
/// Writes into a file, whose path is UTF-8 on every system, in place of what it held.
QXIO_API void writeJsonFile(std::string const& path, Table const& table,
                            JsonWriteOptions const& options = {});

} // namespace QX
