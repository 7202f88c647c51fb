#include "reader.h"

#include "failure.h"
#include "input.h"
#include "journal.h"
#include "system.h"

#include <qx/csv.h>
#include <qx/json.h>

namespace qxtab {

namespace {

// The ending of a file's name, without that of a packed file: "csv" for "a.csv.gz".
std::string endingOf(std::string const& file) {
    std::filesystem::path path = pathOf(file);
    if (path.extension() == ".gz") {
        path = path.stem();
    }
    std::string const ending = nameOf(path.extension());
    return ending.empty() ? "" : ending.substr(1);
}

std::string titleOf(std::string const& file) {
    if (file == "-") {
        return inputName(file);
    }
    std::filesystem::path const path = pathOf(file);
    return nameOf(path.extension() == ".gz" ? path.stem().stem() : path.stem());
}

std::string counted(std::size_t count, std::string const& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void tellOdd(std::string const& name, QX::CsvReport const& report) {
    if (report.shortRows != 0) {
        tell(name + ":" + std::to_string(report.firstShortLine) + ": " +
             counted(report.shortRows, "row") + " with fewer fields than the header, from here on");
    }
    if (report.longRows != 0) {
        tell(name + ":" + std::to_string(report.firstLongLine) + ": " + counted(report.longRows, "row") +
             " with more fields than the header, from here on; the columns are called \"column N\"");
    }
    if (report.equalNames != 0) {
        tell(name + ": " + counted(report.equalNames, "column") +
             " with the name of an earlier one, which the name means");
    }
}

Table readSeparated(std::string const& file, ReadOptions const& options, char delimiter) {
    QX::CsvReadOptions csv;
    csv.name = inputName(file);
    csv.separator = delimiter;
    csv.type = QX::CsvType::Text;
    csv.ragged = QX::CsvRagged::Keep;
    csv.rows = options.rows;
    QX::CsvReport report;
    QX::Ptr<QX::Table> const read = QX::readCsv(openInput(file, options.anyBytes), csv, &report);
    tellOdd(csv.name, report);
    return read;
}

Table readRecords(std::string const& file, ReadOptions const& options, bool sequence) {
    QX::JsonReadOptions json;
    json.name = inputName(file);
    json.sequence = sequence;
    json.exact = options.exact;
    return QX::readJson(openInput(file, options.anyBytes), json);
}

} // namespace

Data readFile(std::string const& file, ReadOptions const& options) {
    std::string const ending = options.format.empty() ? endingOf(file) : options.format;
    bool const lines = ending == "jsonl" || ending == "ndjson";
    bool const json = lines || ending == "json";
    bool const tabs = ending == "tsv" || ending == "tab";
    char const delimiter = options.delimiter.empty() ? (tabs ? '\t' : ',') : options.delimiter.front();
    Table const table =
        json ? readRecords(file, options, lines) : readSeparated(file, options, delimiter);
    Data data = withTypes(table, {options.types, !json}, inputName(file));
    data.title = titleOf(file);
    log("Read " + data.label + ": " + counted(data.rows(), "data row") + ", " +
        counted(data.columns(), "column"));
    for (std::size_t i = 0; i < data.columns(); ++i) {
        log("  column " + data.name(i) + ": " + typeName(data.types[i]), QX::Log::Debug);
    }
    return data;
}

} // namespace qxtab
