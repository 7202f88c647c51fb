#include "io/bytesources.h"
#include "io/csvcolumn.h"
#include "io/csvscanner.h"
#include "io/message.h"
#include "io/namecell.h"
#include "qx/csv.h"

#include <algorithm>
#include <filesystem>
#include <unordered_set>
#include <utility>

namespace QX {

namespace {

bool isBlank(CsvField const& field) {
    return field.last && !field.quoted && field.text.empty();
}

std::string fields(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " field" : " fields");
}

void countRow(std::size_t& rows, std::size_t& firstLine, std::size_t line) {
    ++rows;
    firstLine = firstLine == 0 ? line : firstLine;
}

/// Reads one input into a table.
class CsvTableReader {
public:
    CsvTableReader(ByteSource const& source, CsvReadOptions const& options, std::string const& tableName)
        : options_(options), scanner_(source, options), table_(new Table(Str(tableName))),
          blankIsEmpty_(options.empty.size() == 1 && options.empty.front().empty()) {}

    Ptr<Table> read();
    CsvReport report() const;

private:
    void readHeader();
    void readRow(CsvField& field);
    void takeField(std::size_t column, CsvField const& field);
    void checkRow(std::size_t fields);
    void checkPadding() const;
    void checkTypes() const;
    bool isEmpty(CsvField const& field) const;
    void addColumn(std::string const& name, Cell const& cell);
    void addFurther();

    CsvReadOptions const& options_;
    CsvScanner scanner_;
    Ptr<Table> table_;
    CsvReport counts_; // but for the columns
    std::vector<CsvColumnReader> columns_;
    std::unordered_set<std::string> names_;
    std::size_t width_ = 0;   // of the header, or of the first row without one
    std::size_t fields_ = 0;  // below the header
    std::size_t rowLine_ = 1; // on which the current row began
    bool blankIsEmpty_;
};

Ptr<Table> CsvTableReader::read() {
    if (options_.header) {
        readHeader();
    }
    CsvField field;
    while (counts_.rows < options_.rows && scanner_.next(field)) {
        if (isBlank(field) && width_ != 1) {
            ++counts_.blankLines;
        } else {
            readRow(field);
        }
    }
    checkTypes();
    if (counts_.rows != 0) {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            table_->at(i, counts_.rows); // grows it, where the last cells are empty
        }
    }
    counts_.complete = scanner_.atEnd();
    return table_;
}

void CsvTableReader::readHeader() {
    CsvField field;
    bool found = scanner_.next(field);
    for (; found && isBlank(field); found = scanner_.next(field)) {
        ++counts_.blankLines;
    }
    if (!found) {
        scanner_.failLine(scanner_.line(), "there is no header row, the input is empty");
    }
    for (;;) {
        bool const unnamed = field.text.empty() && !field.quoted;
        addColumn(std::string(field.text), unnamed ? Cell() : nameCell(field.text));
        if (field.last) {
            break;
        }
        scanner_.next(field);
    }
    width_ = columns_.size();
    if (options_.ragged != CsvRagged::Keep) {
        checkTypes();
    }
}

void CsvTableReader::readRow(CsvField& field) {
    rowLine_ = scanner_.fieldLine();
    if (width_ == 0 && field.last) { // a table of one column: the blank lines before it were rows
        counts_.rows = std::exchange(counts_.blankLines, 0);
    }
    ++counts_.rows;
    scanner_.setRows(counts_.rows);
    std::size_t column = 0;
    for (;;) {
        if (column >= columns_.size()) {
            if (width_ != 0 && options_.ragged != CsvRagged::Keep) {
                scanner_.fail("the row has more than the " + fields(width_) + " of the header");
            }
            addFurther();
        }
        takeField(column, field);
        ++column;
        if (field.last) {
            break;
        }
        scanner_.next(field);
    }
    fields_ += column;
    width_ = width_ == 0 ? column : width_;
    if (column != columns_.size() || column != width_) {
        checkRow(column);
    }
}

void CsvTableReader::takeField(std::size_t column, CsvField const& field) {
    if (!field.quoted && (field.text.empty() ? blankIsEmpty_ || isEmpty(field) : isEmpty(field))) {
        return; // the index grows when the next field of the column comes, or at the end
    }
    columns_[column].take(*table_, counts_.rows, field, scanner_, options_);
}

bool CsvTableReader::isEmpty(CsvField const& field) const {
    return !blankIsEmpty_ &&
           std::find(options_.empty.begin(), options_.empty.end(), field.text) != options_.empty.end();
}

void CsvTableReader::checkRow(std::size_t fields) {
    if (fields > width_) {
        countRow(counts_.longRows, counts_.firstLongLine, rowLine_);
    } else if (fields < width_) {
        if (options_.ragged == CsvRagged::Raise) {
            scanner_.failLine(rowLine_, "the row has " + QX::fields(fields) + " where the header has " +
                                            std::to_string(width_));
        }
        countRow(counts_.shortRows, counts_.firstShortLine, rowLine_);
    }
    checkPadding();
}

// A table is a rectangle: without a bound, a few kilobytes of rows of very different lengths would take
// gigabytes.
void CsvTableReader::checkPadding() const {
    constexpr std::size_t free = 100'000;
    std::size_t const missing = counts_.rows * columns_.size() - fields_;
    if (missing > free && (missing - free) / fields_ >= options_.padding) {
        scanner_.failLine(rowLine_,
                          "the rows differ so much in length that most of the table would be empty");
    }
}

void CsvTableReader::checkTypes() const {
    for (auto const& [name, type] : options_.types) {
        if (!names_.contains(name)) {
            throw IoError(options_.name, 0, 0, "there is no column " + quotedForMessage(name));
        }
    }
}

void CsvTableReader::addColumn(std::string const& name, Cell const& cell) {
    counts_.equalNames += names_.insert(name).second ? 0 : 1;
    auto const asked = options_.types.find(name);
    std::size_t const index = columns_.size();
    table_->at(index, 0) = cell;
    columns_.emplace_back(index, name, asked == options_.types.end() ? options_.type : asked->second);
}

void CsvTableReader::addFurther() {
    std::string name = "column " + std::to_string(columns_.size() + 1);
    while (names_.contains(name)) {
        name += '+';
    }
    addColumn(name, nameCell(name));
}

CsvReport CsvTableReader::report() const {
    CsvReport report = counts_;
    report.byteOrderMark = scanner_.hasMark();
    report.columns.reserve(columns_.size());
    for (CsvColumnReader const& column : columns_) {
        report.columns.push_back(column.counts(counts_.rows));
    }
    return report;
}

Ptr<Table> readNamed(ByteSource const& source, CsvReadOptions const& options,
                     std::string const& tableName, CsvReport* report) {
    CsvTableReader reader(source, options, tableName);
    try {
        Ptr<Table> const table = reader.read();
        if (report != nullptr) {
            *report = reader.report();
        }
        return table;
    } catch (...) {
        if (report != nullptr) {
            *report = reader.report();
            report->complete = false;
        }
        throw;
    }
}

std::string stemOf(std::string const& path) {
    std::filesystem::path const whole{std::u8string(path.begin(), path.end())};
    std::u8string const stem = whole.stem().u8string();
    return {stem.begin(), stem.end()};
}

} // namespace

Ptr<Table> readCsv(ByteSource const& source, CsvReadOptions const& options, CsvReport* report) {
    return readNamed(source, options, options.name, report);
}

Ptr<Table> readCsv(std::istream& in, CsvReadOptions const& options, CsvReport* report) {
    return readNamed(streamSource(in), options, options.name, report);
}

Ptr<Table> readCsvText(std::string_view text, CsvReadOptions const& options, CsvReport* report) {
    return readNamed(textSource(text), options, options.name, report);
}

Ptr<Table> readCsvFile(std::string const& path, CsvReadOptions const& options, CsvReport* report) {
    CsvReadOptions named = options;
    named.name = options.name.empty() ? path : options.name;
    return readNamed(fileSource(path), named, options.name.empty() ? stemOf(path) : options.name,
                     report);
}

} // namespace QX
