#include "writer.h"

#include "failure.h"

#include <qx/csv.h>

#include <algorithm>
#include <limits>
#include <ostream>

namespace qxtab {

namespace {

void writeSeparated(std::ostream& os, Data const& data, char separator) {
    QX::CsvWriteOptions options;
    options.name = "standard output";
    options.separator = separator;
    QX::writeCsv(os, *data.table, options);
}

void writeValues(std::ostream& os, Data const& data, WriteOptions const&) {
    std::size_t const rows = data.rows();
    std::string buffer;
    for (std::size_t i = 0; i < data.columns(); ++i) {
        for (std::size_t j = 1; j <= rows && os; ++j) {
            os << textOf(data.cell(i, j), buffer) << '\n';
        }
    }
}

// Whole numbers are printed as the stream is set: six digits, unless told otherwise.
void writeIndices(std::ostream& os, Data const& data, WriteOptions const&) {
    auto const before = os.precision(std::numeric_limits<double>::max_digits10);
    data.table->display(os);
    os.precision(before);
}

} // namespace

std::vector<Format> const& formats() {
    static std::vector<Format> const all = {
        {"text", "aligned columns, for people", writeText},
        {"csv", "comma-separated values",
         [](std::ostream& os, Data const& data, WriteOptions const&) { writeSeparated(os, data, ','); }},
        {"tsv", "tab-separated values",
         [](std::ostream& os, Data const& data, WriteOptions const&) {
             writeSeparated(os, data, '\t');
         }},
        {"json", "an array of objects", writeJson},
        {"jsonl", "an object on each line", writeJsonLines},
        {"values", "each value on a line", writeValues},
        {"indices", "the library's own form", writeIndices},
    };
    return all;
}

Format const& formatNamed(std::string const& name) {
    std::vector<std::string> names;
    for (Format const& each : formats()) {
        if (name == each.name) {
            return each;
        }
        names.emplace_back(each.name);
    }
    throw Misuse("'" + name + "' is not a format: text, csv, tsv, json, jsonl, values or indices" +
                 suggestion(name, names));
}

} // namespace qxtab
