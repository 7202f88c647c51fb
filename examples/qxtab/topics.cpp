#include "help.h"

#include "function.h"

namespace qxtab {

Topic const topics[] = {
    {"files", "FILES",
     "Files are CSV, or TSV where the name ends in .tsv or .tab, or JSON where it ends in .json (.jsonl "
     "and\n"
     ".ndjson for a value on each line); --from says otherwise, --delimiter sets another separator. "
     "\"-\", or\n"
     "no file, is standard input. What gzip has packed is unpacked. CSV and TSV have a row of names. "
     "Files\n"
     "of other kinds are refused.\n"
     "\n"
     "Fields may be quoted; lines end with LF, CR or CRLF; a byte order mark is skipped. A row with "
     "fewer\n"
     "fields than the header has empty ones at its end, one with more adds columns, both are told. A "
     "column\n"
     "is named as in the header; of equal names the first is meant.\n"
     "\n"
     "Fields that begin with = + - or @ pass as they are: programs for spreadsheets may compute them "
     "when\n"
     "they open what qxtab writes. 'describe' counts such fields.\n"},
    {"types", "TYPES",
     "What is read is written back byte for byte, unless a verb computes it: 00501, 1E5, +49 and 12.50 "
     "stay\n"
     "as they are. Each column has a type, by which its fields are compared, sorted and grouped:\n"
     "\n"
     "    number  by value: 1.50 is 1.5. A column is of numbers when every field that is not empty is "
     "a\n"
     "            plain number: digits with an optional minus and fraction, without needless zeros in\n"
     "            front (007), plus (+49), bare exponent (0E8) or whole part of more than 15 digits\n"
     "    date    as text; when every field is a date YYYY-MM-DD\n"
     "    text    byte by byte; every other column\n"
     "\n"
     "'describe' shows the types; --types zip=text,price=number sets them. In JSON, numbers are numbers "
     "and\n"
     "strings are text. In a column that was said to be of numbers, fields that are none come behind "
     "them.\n"},
    {"expressions", "EXPRESSIONS",
     "Numbers stand as they are, texts in \"\" or '', columns by their names, or in {} where a name is "
     "not made\n"
     "of letters, digits and _: {unit price}. From the weakest to the strongest:\n"
     "\n"
     "    a or b    a and b    not a\n"
     "    a == b (or a = b)    a != b    a < b    a <= b    a > b    a >= b\n"
     "    a + b    a - b    a & b (two texts as one)\n"
     "    a * b    a / b    a % b (remainder)\n"
     "    -a    (a)    function(a, b)\n"
     "\n"
     "Beside a number, a field is compared as a number; if it is none, nothing but != holds, and that "
     "is\n"
     "told. Beside a text, or where --types says so, it is compared as text. Two columns are compared "
     "as\n"
     "numbers where both are of numbers. An empty field equals only what is empty, and is neither less "
     "nor\n"
     "greater than anything. What can't be computed, such as a division by 0, is empty.\n"
     "\n"
     "Functions:\n"
     "\n"},
    {"status", "EXIT STATUS",
     "    0    all went well; for compare: nothing differs\n"
     "    1    a file can't be read or written, a column is not there, and the like; for compare:\n"
     "         something differs\n"
     "    2    the command line can't be understood; for compare: any trouble\n"
     "    141  the reader of the output has gone (the signal SIGPIPE)\n"},
    {"environment", "ENVIRONMENT",
     "On a terminal, long text goes through $QXTAB_PAGER, $PAGER or less, and names stand out; an "
     "empty\n"
     "variable, NO_COLOR or --plain turns that off.\n"},
};

std::size_t const topicCount = sizeof topics / sizeof *topics;

std::string functionLines() {
    std::size_t const width = 32;
    std::string lines;
    for (Function const& each : functions()) {
        std::string call = std::string("    ") + each.name + each.parameters;
        call.resize(width < call.size() + 2 ? call.size() + 2 : width, ' ');
        lines += call + each.help + "\n";
    }
    return lines;
}

} // namespace qxtab
