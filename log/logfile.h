#pragma once

#include "qxbase/str.h"

#include <filesystem>
#include <fstream>

namespace QX {

/// The stream to a file that a log opened. All of them are known to each other, so that no log of the
/// process truncates, or writes into, the file of another.
class LogFile final : public std::ofstream {
public:
    /// Opens the file `name`, UTF-8, anew. The stream is in a failed state when the file can't be opened
    /// or when another LogFile than `former`, the stream that the log is about to leave, has it open.
    LogFile(Str const& name, std::ostream const* former);
    LogFile(LogFile const&) = delete;
    LogFile& operator=(LogFile const&) = delete;
    ~LogFile() override;

private:
    bool isHeld(std::ostream const* former) const;

    std::filesystem::path path_;
    LogFile* next_ = nullptr;
};

} // namespace QX
