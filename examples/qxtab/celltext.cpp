#include "celltext.h"

#include "failure.h"

#include <sstream>

namespace qxtab {

namespace {

std::string printed(QX::Cell const& cell) {
    std::ostringstream os;
    os << cell;
    return os.str();
}

std::string summary(QX::Cell const& cell) {
    QX::Ptr<QX::Table const> table;
    require(cell.get(table));
    std::size_t const items = table->items(0);
    return "[table " + bytes(table->name()) + ": " + std::to_string(table->indices()) + " x " +
           std::to_string(items == 0 ? 0 : items - 1) + "]";
}

void appendVisible(std::string& out, char c) {
    static char const digits[] = "0123456789ABCDEF";
    auto const byte = static_cast<unsigned char>(c);
    if (c == '\n') {
        out += "\\n";
    } else if (c == '\r') {
        out += "\\r";
    } else if (c == '\t') {
        out += "\\t";
    } else if (byte < 0x20 || byte == 0x7F) {
        out += {'\\', 'x', digits[byte >> 4], digits[byte & 0xF]};
    } else {
        out += c;
    }
}

} // namespace

std::string plainText(QX::Cell const& cell) {
    QX::Str text;
    switch (cell.isA()) {
    case QX::Cell::EmptyCell:
        return "";
    case QX::Cell::TableCell:
        return printed(cell);
    case QX::Cell::NumericCell:
        if (cell.empty()) {
            return "";
        }
        [[fallthrough]];
    case QX::Cell::StringCell:
    case QX::Cell::ErrorCell:
        require(cell.get(text, 0));
        break;
    }
    return bytes(text);
}

std::string screenText(QX::Cell const& cell) {
    if (cell.isA() == QX::Cell::NumericCell && cell.empty()) {
        return printed(cell);
    }
    std::string text;
    for (char const c : cell.isA() == QX::Cell::TableCell ? summary(cell) : plainText(cell)) {
        appendVisible(text, c);
    }
    return text;
}

} // namespace qxtab
