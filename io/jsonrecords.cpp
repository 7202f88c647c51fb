#include "io/jsonrecords.h"

#include "io/jsonnames.h"
#include "io/jsonshape.h"
#include "io/namecell.h"
#include "qx/rows.h"

#include <utility>

namespace QX {

namespace {

constexpr std::size_t fewColumns = 8;

/// What stands where an object lacks a key.
Cell missing() {
    return Cell(AnalyticDouble());
}

} // namespace

void JsonRecords::beginRow() {
    ++rows_;
    expected_ = 0;
}

// Objects of one array mostly have the same keys in the same order.
bool JsonRecords::key(std::string_view key) {
    current_ = expected_ < columns_.size() && columns_[expected_].key == key ? expected_ : find(key);
    if (current_ == columns_.size()) {
        columns_.push_back({std::string(key), {nameCell(key)}});
        if (columns_.size() > fewColumns) {
            for (std::size_t i = places_.size(); i < columns_.size(); ++i) {
                places_.emplace(columns_[i].key, i);
            }
        }
    }
    expected_ = current_ + 1;
    std::vector<Cell>& cells = columns_[current_].cells;
    if (cells.size() > rows_) {
        return false;
    }
    if (cells.size() < rows_) {
        cells.resize(rows_, missing());
    }
    return true;
}

std::size_t JsonRecords::find(std::string_view key) {
    if (columns_.size() > fewColumns) {
        auto const found = places_.find(std::string(key));
        return found == places_.end() ? columns_.size() : found->second;
    }
    std::size_t i = 0;
    while (i < columns_.size() && columns_[i].key != key) {
        ++i;
    }
    return i;
}

void JsonRecords::place(Cell&& value, JsonMark mark) {
    columns_[current_].cells.push_back(std::move(value));
    ++members_;
    if (mark != JsonMark::None) {
        marks_.push_back({current_, rows_, mark});
    }
}

void JsonRecords::takeRow(std::size_t row, std::vector<Cell>& names, std::vector<Cell>& values,
                          std::vector<JsonMarked>& marks) {
    std::unordered_map<std::size_t, JsonMark> marked;
    for (; nextMark_ < marks_.size() && marks_[nextMark_].item <= row; ++nextMark_) {
        marked.emplace(marks_[nextMark_].index, marks_[nextMark_].mark);
    }
    std::size_t member = 0;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        std::vector<Cell>& cells = columns_[i].cells;
        if (row >= cells.size() || isMissing(cells[row])) {
            continue;
        }
        names.push_back(cells.front());
        values.push_back(std::move(cells[row]));
        auto const mark = marked.find(i);
        if (mark != marked.end()) {
            marks.push_back({member, 1, mark->second});
        }
        ++member;
    }
}

Ptr<Table> JsonRecords::takeTable() {
    if (columns_.empty()) {
        return nullptr;
    }
    Ptr<Table> const table(new Table(JsonName::rows));
    for (Column& column : columns_) {
        column.cells.resize(rows_ + 1, missing());
        addIndex(*table, std::move(column.cells));
        column.cells = {};
    }
    keepMarks(*table, marks_, 0);
    return table;
}

} // namespace QX
