#include "log/logfile.h"

#include "memory/immortal.h"

#include <mutex>
#include <string>
#include <system_error>

namespace QX {

namespace {

LogFile* files = nullptr; // those that are open

/// Made when it is first needed, which globals of the program may do before this file's own are made.
std::mutex& filesMutex() {
    static Immortal<std::mutex> mutex;
    return mutex.object;
}

} // namespace

LogFile::LogFile(Str const& name, std::ostream const* former) {
    std::u8string const text(name.data(), name.data() + name.size());
    if (text.find(u8'\0') != std::u8string::npos) {
        setstate(failbit); // the system would replace the file of the name's first part
        return;
    }
    path_ = std::filesystem::path(text);
    std::lock_guard const lock(filesMutex());
    if (isHeld(former)) {
        setstate(failbit);
        return;
    }
    open(path_);
    if (is_open()) {
        std::error_code ignored;
        path_ = std::filesystem::absolute(path_, ignored); // for when the current directory changes
        next_ = files;
        files = this;
    }
}

LogFile::~LogFile() {
    std::lock_guard const lock(filesMutex());
    close();
    for (LogFile** link = &files; *link != nullptr; link = &(*link)->next_) {
        if (*link == this) {
            *link = next_;
            break;
        }
    }
}

bool LogFile::isHeld(std::ostream const* former) const {
    for (LogFile const* file = files; file != nullptr; file = file->next_) {
        std::error_code missing; // then it is no file that is open
        if (file != former && std::filesystem::equivalent(path_, file->path_, missing)) {
            return true;
        }
    }
    return false;
}

} // namespace QX
