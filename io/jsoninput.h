#pragma once

#include "io/bytescan.h"
#include "qx/iosource.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace QX {

/// The bytes of a source as the stream that the parser reads from, which knows lines and columns.
class JsonInput {
public:
    using Ch = char;

    /// Raises IoError for a beginning that is no UTF-8 text.
    JsonInput(ByteSource const& source, IoProgress const& progress, std::string const& name);

    /// The next byte; '\0' at the end, where atEnd() is true.
    Ch Peek() { return at_ != end_ || refill() ? data_[at_] : '\0'; }
    Ch Take() { return at_ != end_ || refill() ? data_[at_++] : '\0'; }
    std::size_t Tell() const { return static_cast<std::size_t>(base_ + at_); }

    /// Bytes of a string that stand for themselves, as far as they are at hand, and taken with this.
    std::string_view takePlain() {
        std::size_t const size = plainBytes(data_.data() + at_, data_.data() + end_);
        at_ += size;
        return {data_.data() + at_ - size, size};
    }

    // What the parser's concept of a stream asks for besides, though nothing is written.
    Ch* PutBegin() { return nullptr; }
    void Put(Ch) {}
    void Flush() {}
    std::size_t PutEnd(Ch*) { return 0; }
    Ch* Push(std::size_t) { return nullptr; }

    bool atEnd() { return at_ == end_ && !refill(); }
    void skipSpace();
    /// What the progress function is told.
    void setValues(std::size_t values) { values_ = values; }
    /// Raises IoError for a place no further than some bytes back.
    [[noreturn]] void fail(std::size_t place, std::string const& message) const;

private:
    bool refill();
    void countLines(std::string_view text, std::size_t& line, std::uint64_t& start) const;

    ByteSource const& source_;
    IoProgress const& progress_;
    std::string const& name_;
    std::vector<char> data_;
    std::size_t at_ = 0;
    std::size_t end_ = 0;
    std::uint64_t base_ = 0;      // where in the input data_ begins
    std::size_t line_ = 1;        // of the first byte in data_
    std::uint64_t lineStart_ = 0; // where in the input that line begins
    std::size_t values_ = 0;
    bool ended_ = false;
};

} // namespace QX
