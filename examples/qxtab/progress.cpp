#include "progress.h"

#include "system.h"
#include "utf8.h"

#include <iostream>
#include <utility>

namespace qxtab {

namespace {

std::string megabytes(std::uint64_t bytes) {
    std::uint64_t const tenth = 100'000;
    std::uint64_t const tenths = bytes / tenth;
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

} // namespace

Progress::Progress(std::string name, std::uint64_t size)
    : name_(std::move(name)), size_(size), next_(Clock::now() + std::chrono::seconds(2)),
      wanted_(isTerminal(Stream::Error)) {
}

Progress::~Progress() {
    clear();
}

void Progress::add(std::uint64_t bytes) {
    done_ += bytes;
    if (bytes == 0) {
        clear();
        return;
    }
    if (wanted_ && Clock::now() >= next_) {
        show();
        shown_ = true;
        next_ = Clock::now() + std::chrono::milliseconds(500);
    }
}

void Progress::show() const {
    std::cerr << '\r' << visible(name_) << ": " << megabytes(done_)
              << (size_ == 0 ? "" : " of " + megabytes(size_)) << "   " << std::flush;
}

void Progress::clear() {
    if (std::exchange(shown_, false)) {
        std::cerr << "\r\x1B[K" << std::flush;
    }
}

} // namespace qxtab
