#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace qxtab {

/// Shows on standard error, when that is a terminal, how much of an input has been read: first after two
/// seconds, then twice a second. The line is gone when reading ends.
class Progress {
public:
    /// A size of 0 is one that is not known.
    Progress(std::string name, std::uint64_t size);
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;
    ~Progress();

    /// So many more bytes have been read; 0 says that there are no more.
    void add(std::uint64_t bytes);

private:
    using Clock = std::chrono::steady_clock;

    void show() const;
    void clear();

    std::string name_;
    std::uint64_t size_;
    std::uint64_t done_ = 0;
    Clock::time_point next_;
    bool wanted_;
    bool shown_ = false;
};

} // namespace qxtab
