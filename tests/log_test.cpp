#include "qx/log.h"
#include "qxdatetime/datetime.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <random>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

using QX::DateTime;
using QX::Except;
using QX::Log;
using QX::Report;
using QX::Status;
using QX::Str;

namespace {

std::string const banner = std::string(88, '=') + "\n";

/// What the streams of one test did.
struct Counts {
    int alive = 0;
    int flushes = 0;
};

/// A stream that keeps its text and counts.
class Counted : private std::stringbuf, public std::ostream {
public:
    explicit Counted(Counts& counts)
        : std::ostream(static_cast<std::stringbuf*>(this)), counts_(counts) {
        ++counts_.alive;
    }
    ~Counted() override { --counts_.alive; }
    std::string text() const { return str(); }

private:
    int sync() override {
        ++counts_.flushes;
        return 0;
    }

    Counts& counts_;
};

/// A log to a stream of the test, without date and time.
class LogTest : public testing::Test {
protected:
    LogTest() {
        log.setStream(&stream, false);
        log.setDateDisplay(false);
        log.setTimeDisplay(false);
    }

    /// What was written since the last call.
    std::string written() {
        std::string const text = stream.str();
        stream.str("");
        return text;
    }

    std::ostringstream stream;
    Log log;
};

Log::LogLevel level(int number) {
    return static_cast<Log::LogLevel>(number);
}

TEST_F(LogTest, WritesMessagesUpToItsLevel) {
    log.send("shown", Log::Info);
    EXPECT_EQ(written(), "-Level 4: shown\n");
    log.setName("Main");
    log.send("shown", Log::Fatal);
    EXPECT_EQ(written(), "Main-Level 1: shown\n");
    log.send("hidden", Log::Debug);
    EXPECT_EQ(written(), "");
    log.send("bare", Log::Always);
    log.send("bare", level(-2));
    EXPECT_EQ(written(), "bare\nbare\n");
    stream << std::hex << std::showbase;
    log.setLevel(level(31));
    log.send("decimal", level(31));
    EXPECT_EQ(written(),
              banner + "Main-Level 4: Changing Log level to 31\n" + banner + "Main-Level 31: decimal\n");
}

TEST_F(LogTest, WritesReportsAndExceptions) {
    Report const inner(Status("inside", Status::Error, -1), "a.cpp", 3);
    Report const outer(Status("outside", Status::Error, -1), Str(), 0);
    log.send(inner, Log::Error);
    log.send(Except(outer, std::make_unique<Except>(inner)), Log::Always);
    EXPECT_EQ(written(), "-Level 2: a.cpp(3): inside\na.cpp(3): inside\noutside\n");
    log.send(inner, Log::Debug);
    log.send(Except(outer), Log::Debug);
    EXPECT_EQ(written(), "");
}

TEST_F(LogTest, ChangesLevel) {
    log.setName("Main");
    EXPECT_EQ(log.setLevel(Log::Info), Log::Info);
    EXPECT_EQ(written(), "");
    EXPECT_EQ(log.setLevel(Log::Error), Log::Info);
    EXPECT_EQ(written(), banner + "Main-Level 4: Changing Log level to 2\n" + banner);
    log.send("hidden", Log::Warning);
    EXPECT_EQ(written(), "");
    log.report();
    EXPECT_EQ(written(), banner + "Output Stream Main at level 2\n" + banner);
    log.setLevel(level(-1));
    log.setLevel(level(-3));
    EXPECT_EQ(written(), banner + "Main-Level 2: Changing Log level to -1\n" + banner + banner +
                             "Changing Log level to -3\n" + banner);
    log.report();
    log.send("hidden", level(-2));
    EXPECT_EQ(written(), banner + banner);
    log.banner();
    EXPECT_EQ(written(), banner);
}

TEST_F(LogTest, StampsDateAndTime) {
    EXPECT_FALSE(log.setDateDisplay(true));
    EXPECT_FALSE(log.setTimeDisplay(true));
    auto const stamp = [] {
        DateTime now;
        now.now();
        return std::string(now.getDate("dd:mmm:yyyy").get()) + " " + now.getTime("hh:mm:ss").get();
    };
    std::string before;
    do { // again when the second ended meanwhile
        written();
        before = stamp();
        log.send("text", Log::Warning);
    } while (stamp() != before);
    EXPECT_EQ(written(), before + " -Level 3: text\n");

    EXPECT_TRUE(log.setDateDisplay(false));
    log.send("text", Log::Always);
    EXPECT_EQ(written().size(), std::string("hh:mm:ss text\n").size());
    EXPECT_TRUE(log.setTimeDisplay(false));
    EXPECT_FALSE(log.setDateDisplay(true));
    log.send("text", Log::Always);
    EXPECT_EQ(written().size(), std::string("dd:mmm:yyyy text\n").size());
}

TEST(Log, StartsOnStandardOutput) {
    testing::internal::CaptureStdout();
    {
        Log log;
        log.send("shown", Log::Info);
        log.send("hidden", Log::Debug);
        log.setStream("");
    }
    std::cout << "still open" << std::endl;
    std::string const stamp = "[0-9]{2}:[A-Z][a-z]{2}:[0-9]{4} [0-9]{2}:[0-9]{2}:[0-9]{2} ";
    std::string const text = testing::internal::GetCapturedStdout();
    EXPECT_TRUE(std::regex_match(text, std::regex(stamp + "-Level 4: shown\n" + stamp +
                                                  "-Level 4: Switching log to \nstill open\n")))
        << text;
}

TEST_F(LogTest, WithoutAStreamWritesNothing) {
    log.setStream(nullptr, true);
    log.send("lost", Log::Always);
    log.banner();
    log.report();
    EXPECT_EQ(log.setLevel(Log::Trace), Log::Info);
    EXPECT_EQ(log.setLevel(Log::Info), Log::Trace);
    Log const copy(log);
    EXPECT_EQ(written(), "");
}

TEST_F(LogTest, OwnsAStreamUntilItLeaves) {
    Counts counts;
    {
        Log owner;
        owner.setStream(new Counted(counts), true);
        owner.setStream(new Counted(counts), true);
        EXPECT_EQ(counts.alive, 1);
        owner.setStream(&stream, false);
        EXPECT_EQ(counts.alive, 0);
        owner.setStream(new Counted(counts), true);
        owner.report();
        EXPECT_EQ(counts.flushes, 3);
    }
    EXPECT_EQ(counts.alive, 0);
    EXPECT_EQ(counts.flushes, 4);

    auto const handedBack = std::make_unique<Counted>(counts);
    log.setStream(handedBack.get(), true);
    log.setStream(handedBack.get(), false);
    log.setStream(nullptr, false);
    EXPECT_EQ(counts.alive, 1);
}

TEST_F(LogTest, CopiesShareAStreamWithoutOwningIt) {
    Counts counts;
    auto* const shared = new Counted(counts);
    log.setName("Main");
    log.setStream(shared, true);
    {
        Log copy(log);
        Log moved(std::move(copy));
        moved.send("moved", Log::Fatal);
        Log assigned;
        assigned.setStream(new Counted(counts), true);
        EXPECT_EQ(&(assigned = log), &assigned);
        EXPECT_EQ(counts.alive, 1);
        assigned.send("assigned", Log::Info);
        log = assigned; // both write to the stream that log owns
        Log const& self = log;
        log = self;
    }
    EXPECT_EQ(counts.alive, 1);
    log.send("kept", Log::Info);
    EXPECT_EQ(shared->text(), "Main-Level 1: moved\nMain-Level 4: assigned\nMain-Level 4: kept\n");
    log = Log();
    EXPECT_EQ(counts.alive, 0);
}

/// A buffer whose device is gone.
class Broken : public std::streambuf {
    int sync() override { throw std::runtime_error("device gone"); }
};

TEST_F(LogTest, EndsQuietlyOnABrokenStream) {
    Broken broken;
    auto owned = std::make_unique<std::ostream>(&broken);
    owned->exceptions(std::ios::badbit);
    Log owner;
    owner.setStream(owned.release(), true);
}

/// A log to files in a directory that goes with the test.
class LogFileTest : public LogTest {
protected:
    LogFileTest() { std::filesystem::create_directory(directory); }
    ~LogFileTest() override {
        log.setStream(nullptr, false);
        std::filesystem::remove_all(directory);
    }

    std::filesystem::path path(char8_t const* name) const { return directory / name; }
    Str named(char8_t const* name) const {
        std::u8string const whole = path(name).u8string();
        return std::string(whole.begin(), whole.end());
    }
    std::string content(char8_t const* name) const {
        std::ifstream in(path(name));
        return {std::istreambuf_iterator<char>(in), {}};
    }

    std::filesystem::path const directory =
        std::filesystem::temp_directory_path() / ("qx_log_" + std::to_string(std::random_device()()));
};

TEST_F(LogFileTest, SwitchesToAFile) {
    std::ofstream(path(u8"caf\u00e9.log")) << "former content";
    log.setName("Main");
    log.setStream(named(u8"caf\u00e9.log"));
    EXPECT_EQ(written(),
              std::string("Main-Level 4: Switching log to ") + named(u8"caf\u00e9.log").get() + "\n");
    std::string const head = banner + "Output Stream Main at level 4\n" + banner;
    EXPECT_EQ(content(u8"caf\u00e9.log"), head);

    log.setStream(named(u8"second.log"));
    EXPECT_EQ(content(u8"caf\u00e9.log"),
              head + "Main-Level 4: Switching log to " + named(u8"second.log").get() + "\n");
    log.send("here", Log::Fatal);
    EXPECT_EQ(content(u8"second.log"), head + "Main-Level 1: here\n");
    EXPECT_EQ(written(), "");
}

TEST_F(LogFileTest, LosesMessagesToAFileThatCannotBeOpened) {
    log.setStream(named(u8"missing/file.log"));
    log.send("lost", Log::Always);
    log.setStream(&stream, false);
    log.send("back", Log::Always);
    EXPECT_EQ(written(), std::string("-Level 4: Switching log to ") + named(u8"missing/file.log").get() +
                             "\nback\n");

    std::ofstream(path(u8"kept")) << "content";
    log.setStream(named(u8"kept") + std::string("\0.log", 5));
    log.send("lost", Log::Always);
    EXPECT_EQ(content(u8"kept"), "content"); // the name does not end at its zero byte
}

} // namespace
