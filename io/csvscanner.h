#pragma once

#include "io/bytescan.h"
#include "qx/csv.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace QX {

/// One field of delimiter-separated text.
struct CsvField {
    std::string_view text; ///< without its quotes; valid until the next field is taken
    bool quoted = false;
    bool last = false; ///< the last of its row
};

/// Splits delimiter-separated text into fields, piece by piece as its source gives them.
class CsvScanner {
public:
    /// Raises IoError for options that contradict each other.
    CsvScanner(ByteSource const& source, CsvReadOptions const& options);

    /// Takes the next field; false at the end of the input. Raises IoError.
    bool next(CsvField& field) {
        if (at_ == end_ || data_[at_] == '\n' || trim_ || data_[at_] == quote_) {
            return nextRare(field);
        }
        afterReturn_ = false;
        std::size_t const start = at_;
        char const* const from = data_.data() + start;
        char const* const stop = ends_.find(from, data_.data() + end_);
        if (stop == data_.data() + end_) {
            return nextPlain(field, end_);
        }
        beginField(start);
        field.text = {from, static_cast<std::size_t>(stop - from)};
        field.quoted = false;
        passEnd(field, static_cast<std::size_t>(stop - data_.data()));
        return true;
    }

    /// The line of the next field, counted from 1.
    std::size_t line() const { return line_; }
    /// The line on which the last field begins.
    std::size_t fieldLine() const { return fieldLine_; }
    /// The bytes that the source has given.
    std::uint64_t bytes() const { return base_ + end_; }
    /// True once the source has said that there is no more, and all of it is taken.
    bool atEnd() const { return ended_ && at_ == end_ && !pending_; }
    bool hasMark() const { return mark_; }
    /// Calls the progress function with this number once more pieces have come.
    void setRows(std::size_t rows) { rows_ = rows; }

    /// Raises an IoError at the start of the last field.
    [[noreturn]] void fail(std::string const& message) const;
    /// Raises an IoError at a line.
    [[noreturn]] void failLine(std::size_t line, std::string const& message) const;

private:
    bool nextRare(CsvField& field);
    bool nextPlain(CsvField& field, std::size_t searched);
    bool nextQuoted(CsvField& field);
    /// Takes what ends the field at `stop`, where there is a separator or a line end, or the input ends.
    void passEnd(CsvField& field, std::size_t stop) {
        at_ = stop + 1;
        pending_ = data_[stop] == separator_ && stop < end_;
        field.last = !pending_;
        if (field.last) {
            passLineEnd(stop);
        }
    }
    void beginField(std::size_t at) {
        fieldStart_ = base_ + at;
        fieldLine_ = line_;
        fieldLineStart_ = lineStart_;
    }
    void passLineEnd(std::size_t stop) {
        if (stop == end_) {
            at_ = end_;
            return;
        }
        afterReturn_ = data_[stop] == '\r';
        if (afterReturn_ && at_ < end_ && data_[at_] == '\n') {
            ++at_;
            afterReturn_ = false;
        }
        beginLine(at_);
    }
    void beginLine(std::size_t at) {
        ++line_;
        lineStart_ = base_ + at;
    }
    std::size_t closingQuote(std::size_t from, bool& doubled);
    std::string_view withoutDoubled(std::size_t from, std::size_t to);
    /// Counts the lines that end within a field.
    void countLines(std::size_t from, std::size_t to);
    void trimEnd(std::string_view& text) const;
    bool isBlank(char c) const { return (c == ' ' || c == '\t') && c != separator_; }
    /// Moves the bytes from at_ on to the front, and `position` with them, and gets more behind them;
    /// false at the end.
    bool refill(std::size_t& position);
    void begin();
    [[noreturn]] void failAt(std::uint64_t place, std::string const& message) const;

    ByteSource source_;
    IoProgress progress_;
    std::string name_;
    char separator_;
    int quote_; // beyond any char when there is none
    bool trim_;
    FieldEnds ends_;
    std::vector<char> data_;
    std::size_t at_ = 0;               // where the next field begins
    std::size_t end_ = 0;              // of what the source has given
    std::uint64_t base_ = 0;           // where in the input data_ begins
    std::uint64_t lineStart_ = 0;      // where in the input the line begins
    std::uint64_t fieldStart_ = 0;     // of the last field, in the input
    std::uint64_t fieldLineStart_ = 0; // of its line
    std::size_t line_ = 1;
    std::size_t fieldLine_ = 1;
    std::size_t rows_ = 0;
    bool afterReturn_ = false; // an LF that comes next belongs to the CR before it
    bool pending_ = false;     // a separator was the last, so that a field follows
    bool ended_ = false;
    bool begun_ = false;
    bool mark_ = false;
};

} // namespace QX
