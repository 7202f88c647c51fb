#include "input.h"

#include "failure.h"
#include "gunzip.h"
#include "progress.h"
#include "system.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <string_view>

namespace qxtab {

namespace {

std::size_t const firstBytes = 1 << 16;

struct Format {
    std::string_view begin;
    char const* name;
};

Format const otherFormats[] = {
    {"PK\x03\x04", "a zip archive or spreadsheet"},
    {"\xFD"
     "7zXZ",
     "packed by xz"},
    {"BZh", "packed by bzip2"},
    {"\x28\xB5\x2F\xFD", "packed by zstd"},
    {"SQLite format 3", "a database of SQLite"},
    {"PAR1", "a Parquet file"},
    {"%PDF-", "a PDF document"},
    {"\x89PNG", "an image"},
};

/// The bytes of a file, whose first ones can be looked at before they are taken.
class File {
public:
    explicit File(std::string const& file)
        : name_(inputName(file)), file_(file == "-" ? standardInput() : openFile(file)) {
        if (file_ < 0) {
            fail();
        }
    }
    File(File const&) = delete;
    File& operator=(File const&) = delete;
    ~File() { closeFile(file_); }

    std::uint64_t size() const { return sizeOfFile(file_); }

    std::string_view peek() {
        ahead_.resize(firstBytes);
        ahead_.resize(readBytes(ahead_.data(), ahead_.size()));
        return ahead_;
    }
    std::size_t read(char* buffer, std::size_t size) {
        std::size_t const kept = std::min(size, ahead_.size() - taken_);
        if (kept == 0) {
            return readBytes(buffer, size);
        }
        std::copy_n(ahead_.data() + taken_, kept, buffer);
        taken_ += kept;
        return kept;
    }

private:
    std::size_t readBytes(char* buffer, std::size_t size) {
        long long const got = readFile(file_, buffer, size);
        if (got < 0) {
            fail();
        }
        return static_cast<std::size_t>(got);
    }
    [[noreturn]] void fail() const { throw Failure(name_ + ": " + std::strerror(errno)); }

    std::string name_;
    int file_;
    std::string ahead_;
    std::size_t taken_ = 0;
};

void refuse(std::string const& name, std::string const& what) {
    throw Failure(name + " is " + what + "; qxtab reads CSV, TSV and JSON, also packed by gzip");
}

void checkFormat(std::string const& name, std::string_view begin, bool anyBytes) {
    for (Format const& format : otherFormats) {
        if (begin.starts_with(format.begin)) {
            refuse(name, format.name);
        }
    }
    bool const utf16 =
        begin.starts_with("\xFF\xFE") || begin.starts_with("\xFE\xFF"); // told by the reader
    if (!anyBytes && !utf16 && begin.find('\0') != std::string_view::npos) {
        refuse(name, "no text: it holds zero bytes (--any-bytes reads it all the same)");
    }
}

/// Gives bytes on, the first of them ahead.
QX::ByteSource behind(std::string first, QX::ByteSource const& rest) {
    auto const ahead = std::make_shared<std::pair<std::string, std::size_t>>(std::move(first), 0);
    return [ahead, rest](char* buffer, std::size_t size) {
        std::size_t const count = std::min(size, ahead->first.size() - ahead->second);
        std::copy_n(ahead->first.data() + ahead->second, count, buffer);
        ahead->second += count;
        return count != 0 ? count : rest(buffer, size);
    };
}

} // namespace

std::string inputName(std::string const& file) {
    return file == "-" ? "standard input" : file;
}

QX::ByteSource openInput(std::string const& file, bool anyBytes) {
    std::string const name = inputName(file);
    auto const opened = std::make_shared<File>(file);
    auto const progress = std::make_shared<Progress>(name, opened->size());
    std::string_view const begin = opened->peek();
    bool const packed = begin.starts_with("\x1F\x8B");
    QX::ByteSource const source = [opened, progress](char* buffer, std::size_t size) {
        std::size_t const got = opened->read(buffer, size);
        progress->add(got);
        return got;
    };
    if (!packed) {
        checkFormat(name, begin, anyBytes);
        return source;
    }
    QX::ByteSource const unpacked = gunzip(name, source);
    std::string first(firstBytes, '\0');
    first.resize(unpacked(first.data(), first.size()));
    checkFormat(name, first, anyBytes);
    return behind(std::move(first), unpacked);
}

} // namespace qxtab
