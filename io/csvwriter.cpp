#include "io/filewriter.h"
#include "io/numberform.h"
#include "qx/csv.h"
#include "qx/rows.h"
#include "qx/values.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <sstream>
#include <vector>

namespace QX {

namespace {

constexpr std::size_t pieceSize = 1 << 16;

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

/// Whether a text would be taken for the byte order mark of what it begins.
bool beginsWithMark(std::string_view text) {
    return text.starts_with("\xEF\xBB\xBF") || text.starts_with("\xFF\xFE") ||
           text.starts_with("\xFE\xFF") || text.starts_with("\x1F\x8B");
}

/// Writes rows into a text that is handed on in pieces.
class CsvTableWriter {
public:
    CsvTableWriter(std::ostream& out, Table const& table, CsvWriteOptions const& options)
        : out_(out), table_(table), options_(options) {
        for (char const c : {options.separator, '\r', '\n', options.quote}) {
            special_[static_cast<unsigned char>(c)] = true;
        }
        special_[0] = false; // no quote is no character
        findColumns();
    }

    void write() {
        std::size_t const items = table_.items(0);
        std::size_t const rows = items - std::min(items, std::size_t{1});
        std::size_t const end = rows > options_.rows ? options_.rows + 1 : items;
        for (std::size_t j = options_.header ? 0 : 1; j < end; ++j) {
            writeRow(j);
            if (text_.size() >= pieceSize) {
                flush();
            }
        }
        flush();
    }

private:
    // What a stream or a nested table's display does may change the table: then they are found anew.
    void findColumns() {
        columns_.clear();
        for (std::size_t i = 0; i < table_.indices(); ++i) {
            columns_.push_back(cellsOf(table_, i));
        }
    }

    void writeRow(std::size_t row) {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (i > 0) {
                text_ += options_.separator;
            }
            writeCell(columns_[i][row]);
            first_ = false;
        }
        text_ += options_.lineEnd;
    }

    void writeCell(Cell const& cell) {
        switch (cell.isA()) {
        case Cell::EmptyCell:
            return writeEmpty();
        case Cell::StringCell:
            return writeText(textIn(cell));
        case Cell::NumericCell:
            if (cell.empty()) {
                return writeEmpty();
            }
            printed_.clear();
            appendNumber(printed_, numberIn(cell));
            return writeText(printed_);
        case Cell::ErrorCell:
            return writeError(cell);
        case Cell::TableCell:
            return writeNested(cell);
        }
    }

    /// Writes nothing, but not as all of the first line, which can't be blank.
    void writeEmpty() {
        if (first_ && columns_.size() == 1 && options_.empty.empty()) {
            writeQuoted({});
        } else {
            text_ += options_.empty;
        }
    }

    void writeError(Cell const& cell) {
        Str message;
        (void)cell.get(message, 0);
        writeText({message.data(), message.size()});
    }

    void writeNested(Cell const& cell) {
        Cell const kept(cell);
        std::ostringstream os;
        os << kept;
        findColumns();
        writeText(os.str());
    }

    void writeText(std::string_view text) {
        if (options_.quoteAll || needsQuotes(text) || text == options_.empty) {
            writeQuoted(text);
        } else {
            text_ += text;
        }
    }

    bool needsQuotes(std::string_view text) const {
        if (text.empty() || isBlank(text.front()) || isBlank(text.back()) ||
            (first_ && beginsWithMark(text))) {
            return true;
        }
        return std::any_of(text.begin(), text.end(),
                           [this](char c) { return special_[static_cast<unsigned char>(c)]; });
    }

    void writeQuoted(std::string_view text) {
        char const quote = options_.quote;
        if (quote == '\0') {
            throw IoError(options_.name, 0, 0,
                          "a field that needs quotes can't be written without them");
        }
        text_ += quote;
        for (char const c : text) {
            text_ += c;
            if (c == quote) {
                text_ += c;
            }
        }
        text_ += quote;
    }

    void flush() {
        out_.write(text_.data(), static_cast<std::streamsize>(text_.size()));
        if (!out_) {
            throw IoError(options_.name, 0, 0, "the output takes no more");
        }
        text_.clear();
        findColumns();
    }

    std::ostream& out_;
    Table const& table_;
    CsvWriteOptions const& options_;
    std::array<bool, 256> special_{};
    std::vector<IndexCells> columns_;
    std::string text_;
    std::string printed_;
    bool first_ = true; // the field begins the text
};

} // namespace

void writeCsv(std::ostream& out, Table const& table, CsvWriteOptions const& options) {
    CsvTableWriter(out, table, options).write();
}

std::string writeCsvText(Table const& table, CsvWriteOptions const& options) {
    std::ostringstream out;
    writeCsv(out, table, options);
    return out.str();
}

void writeCsvFile(std::string const& path, Table const& table, CsvWriteOptions const& options) {
    CsvWriteOptions named = options;
    named.name = options.name.empty() ? path : options.name;
    writeFile(path, [&](std::ostream& out) { writeCsv(out, table, named); });
}

} // namespace QX
