#include "io/bytesources.h"

#include "qx/ioerror.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <string>

#include <fcntl.h>
#ifdef _WIN32
#include <filesystem>
#include <io.h>
#else
#include <unistd.h>
#endif

namespace QX {

namespace {

#ifdef _WIN32

int openFile(std::string const& path) {
    std::filesystem::path const wide{std::u8string(path.begin(), path.end())};
    std::error_code ignored;
    if (std::filesystem::is_directory(wide, ignored)) {
        errno = EISDIR; // the system would only say that access is denied
        return -1;
    }
    return _wopen(wide.c_str(), _O_RDONLY | _O_BINARY);
}

long long readSome(int file, char* buffer, std::size_t size) {
    constexpr std::size_t most = 1U << 30;
    return _read(file, buffer, static_cast<unsigned>(std::min(size, most)));
}

void closeFile(int file) {
    _close(file);
}

#else

int openFile(std::string const& path) {
    return ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
}

long long readSome(int file, char* buffer, std::size_t size) {
    ssize_t got = 0;
    do {
        got = ::read(file, buffer, size);
    } while (got < 0 && errno == EINTR);
    return got;
}

void closeFile(int file) {
    ::close(file);
}

#endif

/// A file that is open for reading.
class File {
public:
    explicit File(std::string path) : path_(std::move(path)), file_(openFile(path_)) {
        if (file_ < 0) {
            fail();
        }
    }
    File(File const&) = delete;
    File& operator=(File const&) = delete;
    ~File() { closeFile(file_); }

    std::size_t read(char* buffer, std::size_t size) const {
        long long const got = readSome(file_, buffer, size);
        if (got < 0) {
            fail();
        }
        return static_cast<std::size_t>(got);
    }

private:
    [[noreturn]] void fail() const { throw IoError(path_, 0, 0, std::strerror(errno)); }

    std::string path_;
    int file_;
};

} // namespace

ByteSource fileSource(std::string const& path) {
    auto const file = std::make_shared<File const>(path);
    return [file](char* buffer, std::size_t size) { return file->read(buffer, size); };
}

} // namespace QX
