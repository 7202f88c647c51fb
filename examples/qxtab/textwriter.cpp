#include "celltext.h"
#include "writer.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace qxtab {

namespace {

struct Column {
    std::size_t width = 0;
    bool numbers = false; // nothing but numbers and empty cells, so that its name goes to the right, too
};

std::size_t codePoints(std::string const& text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

bool isNumber(QX::Cell const& cell) {
    return cell.isA() == QX::Cell::NumericCell;
}

Column measure(QX::Table const& table, std::size_t index) {
    Column column;
    bool texts = false;
    std::size_t const items = table.items(index);
    for (std::size_t j = 0; j < items; ++j) {
        QX::Cell const& cell = table.get(index, j);
        column.width = std::max(column.width, codePoints(screenText(cell)));
        if (j > 0) {
            column.numbers |= isNumber(cell);
            texts |= !isNumber(cell) && !cell.empty();
        }
    }
    column.numbers &= !texts;
    return column;
}

// Blanks are written before the next text only, so that no line ends with them.
class Line {
public:
    explicit Line(std::ostream& os) : os_(os) {}

    void put(std::string const& text, std::size_t width, bool right) {
        std::size_t const blanks = width - codePoints(text);
        blanks_ += right ? blanks : 0;
        if (!text.empty()) {
            os_ << std::string(blanks_, ' ') << text;
            blanks_ = 0;
        }
        blanks_ += (right ? 0 : blanks) + gap;
    }
    void end() {
        os_ << '\n';
        blanks_ = 0;
    }

private:
    static std::size_t const gap = 2;

    std::ostream& os_;
    std::size_t blanks_ = 0;
};

} // namespace

void writeText(std::ostream& os, QX::Table const& table) {
    std::vector<Column> columns;
    for (std::size_t i = 0; i < table.indices(); ++i) {
        columns.push_back(measure(table, i));
    }
    Line line(os);
    std::size_t const items = table.items(0);
    for (std::size_t j = 0; j < items && os; ++j) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            QX::Cell const& cell = table.get(i, j);
            line.put(screenText(cell), columns[i].width, j == 0 ? columns[i].numbers : isNumber(cell));
        }
        line.end();
        if (j == 0) {
            for (Column const& column : columns) {
                line.put(std::string(column.width, '-'), column.width, false);
            }
            line.end();
        }
    }
}

} // namespace qxtab
