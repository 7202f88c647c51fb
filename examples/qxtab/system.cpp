#include "system.h"

#include <cerrno>
#include <csignal>
#include <iostream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace qxtab {

std::filesystem::path pathOf(std::string const& name) {
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
}

std::string nameOf(std::filesystem::path const& path) {
    std::u8string const name = path.u8string();
    return std::string(name.begin(), name.end());
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

std::FILE* openFile(std::string const& name) {
    std::filesystem::path const path = pathOf(name);
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        errno = EISDIR; // the system would only say that access is denied
        return nullptr;
    }
    return _wfopen(path.c_str(), L"rb");
}

#else

void prepareStreams() {
    std::signal(SIGPIPE, SIG_IGN);
    std::ios::sync_with_stdio(false);
}

std::vector<std::string> arguments(int count, Argument** texts) {
    std::vector<std::string> result;
    for (int i = 1; i < count; ++i) {
        result.emplace_back(texts[i]);
    }
    return result;
}

std::FILE* openFile(std::string const& name) {
    return std::fopen(name.c_str(), "rb");
}

#endif

} // namespace qxtab
