#include "system.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <iostream>

#include <fcntl.h>
#include <sys/stat.h>
#ifdef _WIN32
#include <io.h>
#else
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace qxtab {

std::filesystem::path pathOf(std::string const& name) {
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
}

std::string nameOf(std::filesystem::path const& path) {
    std::u8string const name = path.u8string();
    return std::string(name.begin(), name.end());
}

int standardInput() {
    return 0;
}

#ifdef _WIN32

void prepareStreams() {
    for (std::FILE* const stream : {stdin, stdout, stderr}) {
        _setmode(_fileno(stream), _O_BINARY);
    }
    std::ios::sync_with_stdio(false);
}

std::vector<std::string> arguments(int count, Argument** texts) {
    std::vector<std::string> result;
    for (int i = 1; i < count; ++i) {
        result.push_back(nameOf(texts[i]));
    }
    return result;
}

int openFile(std::string const& name) {
    std::filesystem::path const path = pathOf(name);
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        errno = EISDIR; // the system would only say that access is denied
        return -1;
    }
    return _wopen(path.c_str(), _O_RDONLY | _O_BINARY);
}

long long readFile(int file, char* buffer, std::size_t size) {
    std::size_t const most = 1U << 30;
    return _read(file, buffer, static_cast<unsigned>(std::min(size, most)));
}

void closeFile(int file) {
    if (file > 0) {
        _close(file);
    }
}

std::uint64_t sizeOfFile(int file) {
    struct _stat64 status {};
    bool const regular = _fstat64(file, &status) == 0 && (status.st_mode & _S_IFREG) != 0;
    return regular ? static_cast<std::uint64_t>(status.st_size) : 0;
}

bool isTerminal(Stream stream) {
    return _isatty(static_cast<int>(stream)) != 0;
}

std::size_t terminalLines() {
    return 0; // so that nothing is shown page by page
}

bool startPager(std::string const&) {
    return false;
}

void waitForPager() {
}

void endByClosedPipe() {
    std::_Exit(1);
}

#else

namespace {

pid_t pager = -1;

} // namespace

void prepareStreams() {
    std::ios::sync_with_stdio(false);
}

std::vector<std::string> arguments(int count, Argument** texts) {
    std::vector<std::string> result;
    for (int i = 1; i < count; ++i) {
        result.emplace_back(texts[i]);
    }
    return result;
}

int openFile(std::string const& name) {
    int const file = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (file >= 0 && ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode)) {
        ::close(file);
        errno = EISDIR;
        return -1;
    }
    return file;
}

long long readFile(int file, char* buffer, std::size_t size) {
    ssize_t got = 0;
    do {
        got = ::read(file, buffer, size);
    } while (got < 0 && errno == EINTR);
    return got;
}

void closeFile(int file) {
    if (file > 0) {
        ::close(file);
    }
}

std::uint64_t sizeOfFile(int file) {
    struct stat status {};
    bool const regular = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    return regular ? static_cast<std::uint64_t>(status.st_size) : 0;
}

bool isTerminal(Stream stream) {
    return ::isatty(static_cast<int>(stream)) != 0;
}

std::size_t terminalLines() {
    winsize size{};
    bool const known = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
    return known ? size.ws_row : 0;
}

bool startPager(std::string const& command) {
    int ends[2];
    if (::pipe(ends) != 0) {
        return false;
    }
    pager = ::fork();
    if (pager == 0) {
        ::dup2(ends[0], STDIN_FILENO);
        ::close(ends[0]);
        ::close(ends[1]);
        ::setenv("LESS", "FRX", 0); // end when all fits, pass colours on, leave the screen as it is
        ::execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char*>(nullptr));
        std::_Exit(127);
    }
    ::close(ends[0]);
    bool const started = pager > 0 && ::dup2(ends[1], STDOUT_FILENO) >= 0;
    ::close(ends[1]);
    std::signal(SIGPIPE, SIG_IGN); // leaving the pager early is no failure, and it is to be waited for
    return started;
}

void waitForPager() {
    if (pager > 0) {
        ::close(STDOUT_FILENO);
        while (::waitpid(pager, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
}

void endByClosedPipe() {
    if (pager > 0) {
        waitForPager();
        std::_Exit(0);
    }
    std::signal(SIGPIPE, SIG_DFL);
    std::raise(SIGPIPE);
    std::_Exit(128 + SIGPIPE); // where the signal is blocked
}

#endif

} // namespace qxtab
