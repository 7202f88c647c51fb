#include "tablebuilder.h"

#include "failure.h"

#include <utility>

namespace qxtab {

namespace {

std::size_t const safeDigits = 15; // every whole number of so many digits is a double

// Whether a whole number may come out differently from what came in.
bool maySuffer(std::string const& text) {
    bool const suspicious = text.size() > safeDigits || (text.size() > 1 && text.front() == '0');
    return suspicious && text.find_first_not_of("0123456789") == std::string::npos;
}

} // namespace

TableBuilder::TableBuilder(std::string file, QX::Ptr<QX::Table> const& table)
    : file_(std::move(file)), table_(table), notices_(file_) {
}

void TableBuilder::field(char const* text, std::size_t size) {
    if (row_ > 0 && column_ == columns_) {
        addColumn();
    }
    QX::Cell& cell = table_->at(column_, row_);
    if (text != nullptr) {
        text_.assign(text, size);
        cell = QX::Cell(QX::Str(text_));
        checkDigits(cell);
    }
    ++column_;
}

void TableBuilder::endOfRow(std::size_t line) {
    if (column_ == 0 && width_ != 1) {
        return;
    }
    if (row_ == 0) {
        endHeader();
    } else if (column_ != width_ && column_ != 0) {
        checkLength();
    }
    for (std::string const& text : told_) {
        notices_.tell(line, text);
    }
    told_.clear();
    for (; column_ < width_; ++column_) {
        table_->at(column_, row_);
    }
    column_ = 0;
    ++row_;
}

void TableBuilder::endHeader() {
    width_ = columns_ = column_;
    for (std::size_t i = 0; i < width_; ++i) {
        QX::Str name;
        require(table_->get(i, 0).get(name, 0));
        if (!names_.insert(bytes(name)).second) {
            told_.push_back("more than one column is named \"" + bytes(name) +
                            "\"; the name means the first");
        }
    }
}

void TableBuilder::checkLength() {
    told_.push_back(std::to_string(column_) + (column_ == 1 ? " field" : " fields") +
                    " where the header has " + std::to_string(width_));
}

void TableBuilder::checkDigits(QX::Cell const& cell) {
    if (!maySuffer(text_)) {
        return;
    }
    QX::Str number;
    require(cell.get(number, 0));
    if (bytes(number) != text_) {
        told_.push_back(text_ + " is read as the number " + bytes(number));
    }
}

void TableBuilder::addColumn() {
    std::string name = "column " + std::to_string(columns_ + 1);
    while (!names_.insert(name).second) {
        name += '+';
    }
    table_->at(columns_, 0) = QX::Cell(QX::Str(name));
    ++columns_;
}

void TableBuilder::finish() {
    if (row_ == 0) {
        throw Failure(file_ + ": there is no header row, the input is empty");
    }
    notices_.finish();
}

} // namespace qxtab
