#include "failure.h"
#include "numbers.h"
#include "utf8.h"
#include "writer.h"

#include <qx/json.h>

#include <cmath>
#include <ostream>
#include <unordered_map>

namespace qxtab {

namespace {

void appendUnicode(std::string& out, unsigned code) {
    out += "\\u00";
    out += "0123456789abcdef"[code >> 4];
    out += "0123456789abcdef"[code & 0xF];
}

// What JSON text has to write otherwise; false for other characters.
bool appendSpecial(std::string& out, char c) {
    switch (c) {
    case '"':
    case '\\':
        out += '\\';
        out += c;
        return true;
    case '\n':
        out += "\\n";
        return true;
    case '\r':
        out += "\\r";
        return true;
    case '\t':
        out += "\\t";
        return true;
    default:
        break;
    }
    auto const code = static_cast<unsigned char>(c);
    if (code < 0x20 || code == 0x7F) {
        appendUnicode(out, code);
        return true;
    }
    return false;
}

// So that nothing is written of a table that can't be written whole.
void requireUtf8(Data const& data) {
    std::size_t const rows = data.rows();
    for (std::size_t i = 0; i < data.columns(); ++i) {
        for (std::size_t j = 0; j <= rows; ++j) {
            if (!isUtf8(QX::textIn(data.cell(i, j)))) {
                throw Failure((j == 0 ? "a name" : "data row " + std::to_string(j)) +
                              " can't be written as JSON: its text is not UTF-8");
            }
        }
    }
}

/// Writes the rows of a table as objects.
class Objects {
public:
    explicit Objects(Data const& data) : data_(data) { nameMembers(); }

    std::string const& row(std::size_t row) {
        line_ = "{";
        for (std::size_t i = 0; i < members_.size(); ++i) {
            line_ += i == 0 ? "" : ",";
            line_ += members_[i];
            appendCell(data_.cell(i, row), data_.types[i]);
        }
        return line_ += '}';
    }

private:
    void nameMembers();
    void appendCell(QX::Cell const& cell, ColumnType type);
    static void appendText(std::string& out, std::string_view text);
    void appendTextCell(QX::Cell const& cell, ColumnType type);

    Data const& data_;
    std::vector<std::string> members_; ///< names in quotes with their colons
    std::string line_;
};

// Of equal names the later ones get numbers.
void Objects::nameMembers() {
    std::unordered_map<std::string, std::size_t> uses;
    for (std::size_t i = 0; i < data_.columns(); ++i) {
        std::string const name = data_.name(i);
        std::string const base = name.empty() ? "column " + std::to_string(i + 1) : name;
        std::string unique = base;
        while (uses.contains(unique)) {
            unique = base + " (" + std::to_string(++uses[base]) + ")";
        }
        uses.emplace(unique, 1);
        std::string member;
        appendText(member, unique);
        members_.push_back(member + ":");
    }
}

void Objects::appendText(std::string& out, std::string_view text) {
    out += '"';
    for (std::size_t at = 0; at < text.size();) {
        std::size_t const start = at;
        if (static_cast<unsigned char>(text[at]) < 0x80) {
            if (!appendSpecial(out, text[at])) {
                out += text[at];
            }
            ++at;
            continue;
        }
        nextCharacter(text, at);
        out.append(text, start, at - start);
    }
    out += '"';
}

void Objects::appendTextCell(QX::Cell const& cell, ColumnType type) {
    std::string_view const text = QX::textIn(cell);
    bool const json = !data_.rules.guessTexts; // its truth values are such texts
    if (type == ColumnType::Number && isPlainNumber(text)) {
        bool const bare = text.starts_with('.') || text.starts_with("-.");
        line_ += bare ? numberText(*numberIn(text)) : text;
    } else if (json && (text == "TRUE" || text == "FALSE")) {
        line_ += text == "TRUE" ? "true" : "false";
    } else {
        appendText(line_, text);
    }
}

void Objects::appendCell(QX::Cell const& cell, ColumnType type) {
    switch (cell.isA()) {
    case QX::Cell::EmptyCell:
        line_ += "null";
        return;
    case QX::Cell::NumericCell: {
        std::optional<double> const number = QX::as<double>(cell);
        line_ += number && std::isfinite(*number) ? numberText(*number) : "null";
        return;
    }
    case QX::Cell::TableCell: {
        QX::JsonWriteOptions options;
        options.layout = QX::JsonLayout::Compact;
        line_ += QX::writeJsonText(*QX::valueOr(cell, QX::Ptr<QX::Table>()), options);
        line_.erase(line_.find_last_not_of('\n') + 1);
        return;
    }
    case QX::Cell::StringCell:
        appendTextCell(cell, type);
        return;
    case QX::Cell::ErrorCell:
        appendText(line_, textOf(cell));
        return;
    }
}

// Members that an object lacks are left out, and values other than arrays of objects keep their shape.
bool isNested(Data const& data, WriteOptions const& options) {
    if (options.exact) {
        return true;
    }
    if (data.rules.guessTexts) {
        return false;
    }
    std::string const name = bytes(data.table->name());
    return name == "{}" || name == "[{}]" || name == "[]" || name == "$";
}

void writeNested(std::ostream& os, Data const& data, QX::JsonLayout layout, bool exact) {
    QX::JsonWriteOptions json;
    json.name = "standard output";
    json.layout = layout;
    json.exact = exact;
    QX::writeJson(os, *data.table, json);
}

} // namespace

void writeJson(std::ostream& os, Data const& data, WriteOptions const& options) {
    if (isNested(data, options)) {
        writeNested(os, data, QX::JsonLayout::Rows, options.exact);
        return;
    }
    requireUtf8(data);
    Objects objects(data);
    std::size_t const rows = data.rows();
    for (std::size_t j = 1; j <= rows && os; ++j) {
        os << (j == 1 ? "[\n  " : ",\n  ") << objects.row(j);
    }
    os << (rows == 0 ? "[]\n" : "\n]\n");
}

void writeJsonLines(std::ostream& os, Data const& data, WriteOptions const& options) {
    if (isNested(data, options)) {
        writeNested(os, data, QX::JsonLayout::Lines, options.exact);
        return;
    }
    requireUtf8(data);
    Objects objects(data);
    std::size_t const rows = data.rows();
    for (std::size_t j = 1; j <= rows && os; ++j) {
        os << objects.row(j) << '\n';
    }
}

} // namespace qxtab
