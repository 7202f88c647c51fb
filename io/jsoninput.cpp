#include "io/jsoninput.h"

#include "qx/ioerror.h"

#include <algorithm>
#include <cstring>

namespace QX {

namespace {

constexpr std::size_t pieceSize = 1 << 18;
constexpr std::size_t kept = 64; // how far back an error may lie

} // namespace

JsonInput::JsonInput(ByteSource const& source, IoProgress const& progress, std::string const& name)
    : source_(source), progress_(progress), name_(name), data_(pieceSize + FieldEnds::beyond) {
    while (end_ < 3 && !ended_) {
        at_ = end_;
        refill();
    }
    at_ = 0;
    std::string_view const text(data_.data(), end_);
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        fail(0, "the text is UTF-16; convert it to UTF-8 first");
    }
    if (text.starts_with("\x1F\x8B")) {
        throw IoError(name_, 0, 0, "this is not text but gzip data");
    }
    if (text.starts_with("\xEF\xBB\xBF")) {
        at_ = 3;
        lineStart_ = 3;
    }
}

void JsonInput::skipSpace() {
    for (char c = Peek(); c == ' ' || c == '\n' || c == '\r' || c == '\t'; c = Peek()) {
        Take();
    }
}

void JsonInput::countLines(std::string_view text, std::size_t& line, std::uint64_t& start) const {
    for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1)) {
        ++line;
        start = base_ + at + 1;
    }
}

void JsonInput::fail(std::size_t place, std::string const& message) const {
    std::size_t const at = place < base_ ? 0 : static_cast<std::size_t>(place - base_);
    std::size_t line = line_;
    std::uint64_t start = lineStart_;
    countLines({data_.data(), std::min(at, end_)}, line, start);
    throw IoError(name_, line, static_cast<std::size_t>(base_ + at - start + 1), message);
}

bool JsonInput::refill() {
    if (ended_) {
        return false;
    }
    std::size_t const dropped = end_ - std::min(end_, kept);
    if (dropped > 0) {
        countLines({data_.data(), dropped}, line_, lineStart_);
        std::memmove(data_.data(), data_.data() + dropped, end_ - dropped);
        base_ += dropped;
        at_ -= dropped;
        end_ -= dropped;
    }
    std::size_t const got = source_(data_.data() + end_, pieceSize - end_);
    end_ += got;
    ended_ = got == 0;
    if (progress_) {
        progress_(base_ + end_, values_);
    }
    return !ended_;
}

} // namespace QX
