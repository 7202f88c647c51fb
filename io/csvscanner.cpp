#include "io/csvscanner.h"

#include <algorithm>
#include <cstring>

namespace QX {

namespace {

constexpr std::size_t pieceSize = 1 << 18;
constexpr int noQuote = 256;

int quoteOf(CsvReadOptions const& options) {
    return options.quote == '\0' ? noQuote : options.quote;
}

bool isLineEnd(char c) {
    return c == '\n' || c == '\r';
}

} // namespace

CsvScanner::CsvScanner(ByteSource const& source, CsvReadOptions const& options)
    : source_(source), progress_(options.progress), name_(options.name), separator_(options.separator),
      quote_(quoteOf(options)), trim_(options.trim), ends_(options.separator),
      data_(pieceSize + FieldEnds::beyond) {
    if (isLineEnd(separator_) || isLineEnd(options.quote) || separator_ == quote_) {
        throw IoError(name_, 0, 0, "separator and quote must be two characters other than line ends");
    }
}

void CsvScanner::fail(std::string const& message) const {
    throw IoError(name_, fieldLine_, static_cast<std::size_t>(fieldStart_ - fieldLineStart_ + 1),
                  message);
}

void CsvScanner::failLine(std::size_t line, std::string const& message) const {
    throw IoError(name_, line, 0, message);
}

bool CsvScanner::nextRare(CsvField& field) {
    if (!begun_) {
        begin();
    }
    for (;;) {
        std::size_t unused = at_;
        if (at_ == end_ && !refill(unused)) {
            return pending_ && nextPlain(field, at_);
        }
        bool const secondHalf = afterReturn_ && data_[at_] == '\n';
        afterReturn_ = false;
        if (secondHalf) {
            ++at_;
            lineStart_ = base_ + at_;
        } else if (trim_ && isBlank(data_[at_])) {
            ++at_;
        } else {
            return data_[at_] == quote_ ? nextQuoted(field) : nextPlain(field, at_);
        }
    }
}

// What was searched already is not searched again when more comes, so that a long field that comes in small
// pieces takes linear time.
bool CsvScanner::nextPlain(CsvField& field, std::size_t searched) {
    std::size_t stop = searched;
    do {
        char const* const end = data_.data() + end_;
        stop = static_cast<std::size_t>(ends_.find(data_.data() + stop, end) - data_.data());
    } while (stop == end_ && refill(stop));
    beginField(at_);
    field.text = {data_.data() + at_, stop - at_};
    field.quoted = false;
    while (trim_ && !field.text.empty() && isBlank(field.text.back())) {
        field.text.remove_suffix(1);
    }
    passEnd(field, stop);
    return true;
}

bool CsvScanner::nextQuoted(CsvField& field) {
    beginField(at_);
    bool doubled = false;
    std::size_t const close = closingQuote(at_ + 1, doubled);
    std::size_t const from = at_ + 1;
    std::size_t const length = close - from;
    std::size_t stop = close + 1;
    countLines(from, close);
    while (trim_ && (stop < end_ || refill(stop)) && isBlank(data_[stop])) {
        ++stop;
    }
    if (stop < end_ && data_[stop] != separator_ && !isLineEnd(data_[stop])) {
        throw IoError(name_, line_, static_cast<std::size_t>(base_ + stop - lineStart_ + 1),
                      "text follows the closing quote of a field (inside it, a quote is written twice)");
    }
    field.text = {data_.data() + at_ + 1, length};
    if (doubled) {
        field.text = withoutDoubled(at_ + 1, at_ + 1 + length);
    }
    field.quoted = true;
    passEnd(field, stop);
    return true;
}

/// Finds the quote that closes a field, with the byte behind it in the buffer unless the input ends there.
std::size_t CsvScanner::closingQuote(std::size_t from, bool& doubled) {
    std::size_t at = from;
    for (;;) {
        void const* const hit = std::memchr(data_.data() + at, quote_, end_ - at);
        at = hit == nullptr ? end_
                            : static_cast<std::size_t>(static_cast<char const*>(hit) - data_.data());
        if (at + 1 >= end_ && !refill(at)) {
            if (hit == nullptr) {
                fail("the quoted field that begins here has no closing quote");
            }
            return at;
        }
        if (hit == nullptr) {
            continue;
        }
        if (data_[at + 1] != quote_) {
            return at;
        }
        doubled = true;
        at += 2;
    }
}

std::string_view CsvScanner::withoutDoubled(std::size_t from, std::size_t to) {
    char* out = data_.data() + from;
    for (std::size_t at = from; at < to; ++at) {
        *out++ = data_[at];
        at += data_[at] == quote_ ? 1 : 0;
    }
    return {data_.data() + from, static_cast<std::size_t>(out - data_.data()) - from};
}

void CsvScanner::countLines(std::size_t from, std::size_t to) {
    std::string_view const text(data_.data() + from, to - from);
    if (text.find('\n') == std::string_view::npos && text.find('\r') == std::string_view::npos) {
        return;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool const pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (isLineEnd(text[i]) && !pair) {
            beginLine(from + i + 1);
        }
    }
}

bool CsvScanner::refill(std::size_t& position) {
    std::size_t const moved = at_;
    std::size_t const kept = end_ - at_;
    std::memmove(data_.data(), data_.data() + at_, kept);
    base_ += moved;
    at_ = 0;
    end_ = kept;
    position -= moved;
    if (ended_) {
        return false;
    }
    if (kept > (data_.size() - FieldEnds::beyond) / 2) {
        data_.resize(2 * data_.size());
    }
    std::size_t const got = source_(data_.data() + end_, data_.size() - FieldEnds::beyond - end_);
    end_ += got;
    ended_ = got == 0;
    if (progress_) {
        progress_(bytes(), rows_);
    }
    return !ended_;
}

void CsvScanner::begin() {
    begun_ = true;
    std::size_t unused = 0;
    while (end_ < 3 && refill(unused)) {
    }
    std::string_view const text(data_.data(), end_);
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        failLine(1, "the text is UTF-16; convert it to UTF-8 first");
    }
    if (text.starts_with("\x1F\x8B")) {
        throw IoError(name_, 0, 0, "this is not text but gzip data");
    }
    mark_ = text.starts_with("\xEF\xBB\xBF");
    at_ = mark_ ? 3 : 0;
    lineStart_ = at_;
}

} // namespace QX
