#include "qx/log.h"

#include "qxdatetime/datetime.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace QX {

namespace {

constexpr std::string_view line =
    "========================================================================================";
static_assert(line.size() == 88);

std::unique_ptr<std::ostream> openFile(Str const& fileName) {
    auto file = std::make_unique<std::ofstream>();
    std::u8string const name(fileName.data(), fileName.data() + fileName.size());
    if (name.find(u8'\0') == std::u8string::npos) {
        file->open(std::filesystem::path(name));
    } else {
        file->setstate(std::ios::failbit); // the system would replace the file of the name's first part
    }
    return file;
}

/// Writes what ends its own line. A line that is cut short, for want of memory, is ended all the same:
/// the next message begins on a line of its own.
template <typename Write>
void endingLine(std::ostream& stream, Write const& write) {
    try {
        write();
    } catch (...) {
        stream << std::endl;
        throw;
    }
}

} // namespace

Log::Log() : stream_(&std::cout) {
}

Log::Log(Log const& other)
    : name_(other.name_), level_(other.level_), stream_(other.stream_), dateDisplay_(other.dateDisplay_),
      timeDisplay_(other.timeDisplay_) {
}

Log& Log::operator=(Log const& other) {
    name_ = other.name_;
    level_ = other.level_;
    setStream(other.stream_, owns_ && stream_ == other.stream_);
    dateDisplay_ = other.dateDisplay_;
    timeDisplay_ = other.timeDisplay_;
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
    setStream(openFile(fileName).release(), true);
    report();
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
    now.now();
    // All texts are made first, so that no part of the prefix is written when memory runs out.
    Str const date = dateDisplay_ ? now.getDate("dd:mmm:yyyy") : Str();
    Str const time = timeDisplay_ ? now.getTime("hh:mm:ss") : Str();
    Str const number = Str::asString(int(level));
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
