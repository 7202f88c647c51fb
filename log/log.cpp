#include "qx/log.h"

#include "log/logfile.h"
#include "qxdatetime/datetime.h"

#include <iostream>
#include <string_view>
#include <utility>

namespace QX {

namespace {

constexpr std::string_view line =
    "========================================================================================";
static_assert(line.size() == 88);

/// Lets a stream that has failed be written to again: the disk may have been full for a moment.
void revive(std::ostream& stream) {
    if (!stream.good()) {
        stream.clear();
    }
}

/// Writes what ends its own line, and flushes it, since it may be the last before a crash. A line that is
/// cut short, for want of memory, is ended all the same: the next message begins on a line of its own.
template <typename Write>
void endingLine(std::ostream& stream, Write const& write) {
    try {
        write();
    } catch (...) {
        stream << std::endl;
        throw;
    }
    stream.flush();
}

} // namespace

Log::Log() : stream_(&std::cout) {
}

Log::Log(Log const& other)
    : name_(other.name_), level_(other.level_), stream_(other.stream_), dateDisplay_(other.dateDisplay_),
      timeDisplay_(other.timeDisplay_) {
}

Log::Log(Log&& other) noexcept
    : name_(std::move(other.name_)), level_(other.level_),
      stream_(std::exchange(other.stream_, nullptr)), owns_(std::exchange(other.owns_, false)),
      dateDisplay_(other.dateDisplay_), timeDisplay_(other.timeDisplay_) {
}

Log& Log::operator=(Log const& other) {
    name_ = other.name_;
    level_ = other.level_;
    setStream(other.stream_, owns_ && stream_ == other.stream_);
    dateDisplay_ = other.dateDisplay_;
    timeDisplay_ = other.timeDisplay_;
    return *this;
}

Log& Log::operator=(Log&& other) noexcept {
    if (this != &other) {
        name_ = std::move(other.name_);
        level_ = other.level_;
        setStream(other.stream_, other.owns_ || (owns_ && stream_ == other.stream_));
        other.stream_ = nullptr;
        other.owns_ = false;
        dateDisplay_ = other.dateDisplay_;
        timeDisplay_ = other.timeDisplay_;
    }
    return *this;
}

Log::~Log() {
    if (owns_ && stream_ != nullptr) {
        stream_->exceptions(std::ios::goodbit); // a flush that fails must not throw here
        stream_->flush();
        delete stream_;
    }
}

void Log::setName(Str const& name) {
    name_ = name;
}

bool Log::setDateDisplay(bool display) {
    return std::exchange(dateDisplay_, display);
}

bool Log::setTimeDisplay(bool display) {
    return std::exchange(timeDisplay_, display);
}

Log::LogLevel Log::setLevel(LogLevel newLevel) {
    if (newLevel == level_) {
        return level_;
    }
    Str const text = Str("Changing Log level to ") + Str::asString(int(newLevel));
    banner();
    send(text, level_);
    LogLevel const former = std::exchange(level_, newLevel);
    banner();
    return former;
}

void Log::setStream(std::ostream* stream, bool owns) {
    if (owns_ && stream_ != stream) {
        delete stream_;
    }
    stream_ = stream;
    owns_ = owns;
}

void Log::setStream(Str const& fileName) {
    send(Str("Switching log to ") + fileName, level_);
    std::ostream const* const former = owns_ ? stream_ : nullptr;
    setStream(new LogFile(fileName, former), true);
    report();
}

bool Log::good() const {
    return stream_ != nullptr && stream_->good();
}

void Log::send(Str const& text, LogLevel level) {
    if (prefix(level)) {
        *stream_ << text << std::endl;
    }
}

void Log::send(Report const& report, LogLevel level) {
    if (prefix(level)) {
        endingLine(*stream_, [&] { report.display(*stream_); });
    }
}

void Log::send(Except const& e, LogLevel level) {
    if (prefix(level)) {
        endingLine(*stream_, [&] { *stream_ << e; });
    }
}

void Log::banner() {
    if (stream_ != nullptr) {
        revive(*stream_);
        *stream_ << line << std::endl;
    }
}

void Log::report() {
    Str const text = Str("Output Stream ") + name_ + " at level " + Str::asString(int(level_));
    banner();
    send(text, Always);
    banner();
}

bool Log::prefix(LogLevel level) {
    if (level > level_ || stream_ == nullptr) {
        return false;
    }
    DateTime now;
    (void)now.now();
    // All texts are made first, so that no part of the prefix is written when memory runs out.
    Str const date = dateDisplay_ ? now.getDate("dd:mmm:yyyy") : Str();
    Str const time = timeDisplay_ ? now.getTime("hh:mm:ss") : Str();
    Str const number = Str::asString(int(level));
    revive(*stream_);
    if (dateDisplay_) {
        *stream_ << date << ' ';
    }
    if (timeDisplay_) {
        *stream_ << time << ' ';
    }
    if (level > Always) {
        *stream_ << name_ << "-Level " << number << ": ";
    }
    return true;
}

} // namespace QX
