#include "writer.h"

#include "celltext.h"

#include <algorithm>
#include <limits>
#include <ostream>
#include <string_view>

namespace qxtab {

namespace {

// Whole numbers are printed as the stream is set: six digits, unless told otherwise.
void writeIndices(std::ostream& os, QX::Table const& table) {
    auto const before = os.precision(std::numeric_limits<double>::max_digits10);
    table.display(os);
    os.precision(before);
}

struct Format {
    char const* name;
    void (*write)(std::ostream& os, QX::Table const& table);
};

Format const formats[] = {
    {"text", writeText},
    {"indices", writeIndices},
    {"csv", [](std::ostream& os, QX::Table const& table) { writeSeparated(os, table, ','); }},
    {"tsv", [](std::ostream& os, QX::Table const& table) { writeSeparated(os, table, '\t'); }},
    {"json", writeJson},
    {"values", writeValues},
};

QX::Ptr<QX::Table const> firstRows(QX::Table const& table, std::size_t rows) {
    QX::Ptr<QX::Table> const first(new QX::Table(table.name()));
    for (std::size_t i = 0; i < table.indices(); ++i) {
        for (std::size_t j = 0; j <= rows; ++j) {
            first->at(i, j) = table.get(i, j);
        }
    }
    return first;
}

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

// Whether a text would be taken for the byte order mark of a file that it begins.
bool beginsWithMark(std::string_view text) {
    return text.starts_with("\xEF\xBB\xBF") || text.starts_with("\xFF\xFE") ||
           text.starts_with("\xFE\xFF");
}

bool needsQuotes(std::string const& text, char delimiter) {
    if (text.empty()) {
        return false;
    }
    char const special[] = {delimiter, '"', '\r', '\n'};
    return isBlank(text.front()) || isBlank(text.back()) || beginsWithMark(text) ||
           text.find_first_of(std::string_view(special, sizeof special)) != std::string::npos;
}

void writeQuoted(std::ostream& os, std::string const& text) {
    os << '"';
    for (char const c : text) {
        os << c;
        if (c == '"') {
            os << c;
        }
    }
    os << '"';
}

} // namespace

std::vector<std::string> formatNames() {
    std::vector<std::string> names;
    for (Format const& format : formats) {
        names.emplace_back(format.name);
    }
    return names;
}

void writeTable(std::ostream& os, QX::Ptr<QX::Table const> const& table, Options const& options) {
    bool const cut = options.head && *options.head < dataRows(*table);
    QX::Ptr<QX::Table const> const shown = cut ? firstRows(*table, *options.head) : table;
    for (Format const& format : formats) {
        if (format.name == options.as) {
            format.write(os, *shown);
        }
    }
}

void writeSeparated(std::ostream& os, QX::Table const& table, char delimiter) {
    bool const single = table.indices() == 1;
    std::size_t const items = table.items(0);
    for (std::size_t j = 0; j < items && os; ++j) {
        for (std::size_t i = 0; i < table.indices(); ++i) {
            QX::Cell const& cell = table.get(i, j);
            std::string const text = plainText(cell);
            bool const unseen =
                text.empty() && (cell.isA() == QX::Cell::StringCell || (single && j == 0));
            if (i > 0) {
                os << delimiter;
            }
            if (unseen || needsQuotes(text, delimiter)) {
                writeQuoted(os, text);
            } else {
                os << text;
            }
        }
        os << '\n';
    }
}

void writeValues(std::ostream& os, QX::Table const& table) {
    std::size_t const last = dataRows(table);
    for (std::size_t i = 0; i < table.indices(); ++i) {
        for (std::size_t j = 1; j <= last && os; ++j) {
            os << plainText(table.get(i, j)) << '\n';
        }
    }
}

std::size_t dataRows(QX::Table const& table) {
    return std::max<std::size_t>(table.items(0), 1) - 1;
}

} // namespace qxtab
