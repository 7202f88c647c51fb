#include "tablebuilder.h"

#include "failure.h"

#include <iostream>
#include <utility>

namespace qxtab {

namespace {

std::size_t const mostTold = 10;

QX::Cell nameCell(std::string const& name) {
    return QX::Cell(QX::Str(name));
}

} // namespace

TableBuilder::TableBuilder(std::string file, QX::Ptr<QX::Table> const& table)
    : file_(std::move(file)), table_(table) {
}

void TableBuilder::field(char const* text, std::size_t size) {
    if (row_ > 0 && column_ == columns_) {
        addColumn();
    }
    QX::Cell& cell = table_->at(column_, row_);
    if (text != nullptr) {
        text_.assign(text, size);
        cell = QX::Cell(QX::Str(text_));
    }
    ++column_;
}

void TableBuilder::endOfRow(std::size_t line) {
    if (column_ == 0 && width_ != 1) {
        return;
    }
    if (row_ == 0) {
        endHeader(line);
    } else if (column_ != width_ && column_ != 0) {
        tellLength(line);
    }
    for (; column_ < width_; ++column_) {
        table_->at(column_, row_);
    }
    column_ = 0;
    ++row_;
}

void TableBuilder::endHeader(std::size_t line) {
    width_ = columns_ = column_;
    for (std::size_t i = 0; i < width_; ++i) {
        QX::Str name;
        require(table_->get(i, 0).get(name, 0));
        if (!names_.insert(bytes(name)).second) {
            std::cerr << "qxtab: " << file_ << ":" << line << ": more than one column is named \""
                      << name << "\"; the name means the first\n";
        }
    }
}

void TableBuilder::tellLength(std::size_t line) {
    if (++odd_ <= mostTold) {
        std::cerr << "qxtab: " << file_ << ":" << line << ": " << column_
                  << (column_ == 1 ? " field" : " fields") << " where the header has " << width_ << "\n";
    }
}

void TableBuilder::addColumn() {
    std::string name = "column " + std::to_string(columns_ + 1);
    while (!names_.insert(name).second) {
        name += '+';
    }
    table_->at(columns_, 0) = nameCell(name);
    ++columns_;
}

void TableBuilder::finish() {
    if (row_ == 0) {
        throw Failure(file_ + ": there is no header row, the input is empty");
    }
    if (odd_ > mostTold) {
        std::cerr << "qxtab: " << file_ << ": " << odd_ - mostTold
                  << " more rows are longer or shorter than the header\n";
    }
}

} // namespace qxtab
