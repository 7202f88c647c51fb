#include "utf8.h"
#include "writer.h"

#include <algorithm>
#include <ostream>

namespace qxtab {

namespace {

std::string summary(QX::Cell const& cell) {
    QX::Ptr<QX::Table> const table = QX::valueOr(cell, QX::Ptr<QX::Table>());
    std::size_t const rows = QX::Detail::dataRows(*table);
    return "[table " + std::string(table->name().get()) + ": " + std::to_string(table->indices()) +
           " x " + std::to_string(rows) + "]";
}

/// Writes a line; blanks come before the next text only, so that none ends it.
class Line {
public:
    explicit Line(std::ostream& os) : os_(os) {}

    void put(std::string const& text, std::size_t width, bool right) {
        std::size_t const blanks = width - std::min(width, widthOf(text));
        blanks_ += right ? blanks : 0;
        if (!text.empty()) {
            line_.append(blanks_, ' ').append(text);
            blanks_ = 0;
        }
        blanks_ += (right ? 0 : blanks) + gap;
    }
    void end(bool styled = false) {
        os_ << (styled ? "\x1B[1m" : "") << line_ << (styled ? "\x1B[0m" : "") << '\n';
        line_.clear();
        blanks_ = 0;
    }

private:
    static std::size_t const gap = 2;

    std::ostream& os_;
    std::string line_;
    std::size_t blanks_ = 0;
};

std::size_t widthOfColumn(Data const& data, std::size_t column, std::size_t rows) {
    std::size_t width = 0;
    std::string shown;
    for (std::size_t j = 0; j <= rows; ++j) {
        QX::Cell const& cell = data.cell(column, j);
        std::string_view const text = QX::textIn(cell);
        bool const plain =
            cell.isA() == QX::Cell::StringCell &&
            std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < '\x7F'; });
        width = std::max(width, plain ? text.size() : widthOf(shownText(cell)));
    }
    return width;
}

} // namespace

std::string shownText(QX::Cell const& cell) {
    return visible(cell.isA() == QX::Cell::TableCell ? summary(cell) : textOf(cell));
}

void writeText(std::ostream& os, Data const& data, WriteOptions const& options) {
    std::size_t const rows = data.rows();
    std::vector<std::size_t> widths;
    std::vector<bool> right;
    for (std::size_t i = 0; i < data.columns(); ++i) {
        widths.push_back(widthOfColumn(data, i, rows));
        right.push_back(data.types[i] == ColumnType::Number);
    }
    Line line(os);
    for (std::size_t j = 0; j <= rows && os && !widths.empty(); ++j) {
        for (std::size_t i = 0; i < widths.size(); ++i) {
            QX::Cell const& cell = data.cell(i, j);
            line.put(shownText(cell), widths[i], right[i]);
        }
        line.end(options.styled && j == 0);
        if (j == 0) {
            for (std::size_t const width : widths) {
                line.put(std::string(width, '-'), width, false);
            }
            line.end();
        }
    }
}

} // namespace qxtab
