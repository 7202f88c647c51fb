#include "support.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <random>
#include <stdexcept>
#include <utility>

namespace QX {
namespace {

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

/// The lines of a text one behind the other, each with a "|"; a banner is "=".
std::string lines(std::string text) {
    std::string const banner(88, '=');
    for (std::size_t at = text.find(banner); at != std::string::npos; at = text.find(banner)) {
        text.replace(at, banner.size(), "=");
    }
    std::replace(text.begin(), text.end(), '\n', '|');
    return text;
}

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
        return lines(text);
    }

    std::ostringstream stream;
    Log log;
};

Log::LogLevel level(int number) {
    return static_cast<Log::LogLevel>(number);
}

TEST_F(LogTest, LeavesTheStreamsWidthToWhatIsWrittenFirst) {
    stream.fill('.');
    stream.width(8);
    log.send("hello", Log::Always);
    log.setName("Main");
    stream.width(8);
    log.send("hello", Log::Info);
    EXPECT_EQ(written(), "...hello|....Main-Level 4: hello|");
}

TEST_F(LogTest, WritesWhatIsAtOrBelowItsLevel) {
    log.send("shown", Log::Info);
    log.send("hidden", Log::Debug);
    log.setName("Main");
    log.send("shown", Log::Fatal);
    log.send("bare", Log::Always);
    log.send("bare", level(-2));
    EXPECT_EQ(written(), "-Level 4: shown|Main-Level 1: shown|bare|bare|");

    Report const inner(Status("inside", Status::Error, -1), "a.cpp", 3);
    Report const outer(Status("outside", Status::Error, -1), Str(), 0);
    log.send(inner, Log::Error);
    log.send(Except(outer, std::make_unique<Except>(inner)), Log::Always);
    log.send(inner, Log::Debug);
    log.send(Except(outer), Log::Debug);
    EXPECT_EQ(written(), "Main-Level 2: a.cpp(3): inside|a.cpp(3): inside|outside|");
}

TEST_F(LogTest, ChangesLevel) {
    log.setName("Main");
    stream << std::hex << std::showbase; // levels are decimal all the same
    EXPECT_EQ(log.setLevel(Log::Info), Log::Info);
    EXPECT_EQ(written(), "");
    EXPECT_EQ(log.setLevel(level(31)), Log::Info);
    log.report();
    EXPECT_EQ(written(),
              "=|Main-Level 4: Changing Log level to 31|=|=|Output Stream Main at level 31|=|");
    log.setLevel(level(-1));
    log.setLevel(level(-3));
    EXPECT_EQ(written(), "=|Main-Level 31: Changing Log level to -1|=|=|Changing Log level to -3|=|");
    log.report();
    log.send("hidden", level(-2));
    EXPECT_EQ(written(), "=|=|");
}

TEST_F(LogTest, StampsDateAndTime) {
    auto const stamp = [](char const* date, char const* time) {
        DateTime now;
        now.now();
        return string(now.getDate(date) + now.getTime(time));
    };
    EXPECT_FALSE(log.setDateDisplay(true));
    EXPECT_FALSE(log.setTimeDisplay(true));
    std::string before;
    std::string after;
    do { // again when the second ended meanwhile
        written();
        before = stamp("dd:mmm:yyyy ", "hh:mm:ss ");
        log.send("text", Log::Warning);
        EXPECT_TRUE(log.setDateDisplay(false));
        log.send("text", Log::Always);
        EXPECT_TRUE(log.setTimeDisplay(false));
        EXPECT_FALSE(log.setDateDisplay(true));
        log.send("text", Log::Always);
        EXPECT_FALSE(log.setTimeDisplay(true));
    } while (stamp("dd:mmm:yyyy ", "hh:mm:ss ") != before);
    EXPECT_EQ(written(),
              before + "-Level 3: text|" + before.substr(12) + "text|" + before.substr(0, 12) + "text|");
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
    std::string const text = testing::internal::GetCapturedStdout();
    std::size_t const stamp = std::string("dd:mmm:yyyy hh:mm:ss ").size();
    EXPECT_EQ(text.substr(stamp, 16) + text.substr(2 * stamp + 16),
              "-Level 4: shown\n-Level 4: Switching log to \nstill open\n");
}

TEST_F(LogTest, WithoutAStreamWritesNothing) {
    log.setStream(nullptr, true);
    log.send("lost", Log::Always);
    log.report();
    EXPECT_EQ(log.setLevel(Log::Trace), Log::Info);
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
        assigned = log;
        EXPECT_EQ(counts.alive, 1);
        assigned.send("assigned", Log::Info);
        log = assigned; // both write to the stream that log owns
        Log const& self = log;
        log = self;
    }
    log.send("kept", Log::Info);
    EXPECT_EQ(lines(shared->text()), "Main-Level 1: moved|Main-Level 4: assigned|Main-Level 4: kept|");
    Log borrower;
    borrower = log;
    borrower = Log(log); // the same stream once more, which is not the borrower's
    EXPECT_EQ(counts.alive, 1);
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

TEST_F(LogTest, SwitchesToFiles) {
    namespace fs = std::filesystem;
    fs::path const directory =
        fs::temp_directory_path() / ("qx_log_" + std::to_string(std::random_device()()));
    fs::create_directory(directory);
    auto const named = [&](fs::path const& name) {
        std::u8string const whole = (directory / name).u8string();
        return std::string(whole.begin(), whole.end());
    };
    auto const content = [&](fs::path const& name) {
        std::ifstream in(directory / name);
        return lines({std::istreambuf_iterator<char>(in), {}});
    };
    fs::path const cafe = u8"caf\u00e9.log";
    std::ofstream(directory / cafe) << "former content";
    std::ofstream(directory / "kept") << "content";

    log.setStream(named(cafe));
    EXPECT_EQ(written(), "-Level 4: Switching log to " + named(cafe) + "|");
    EXPECT_EQ(content(cafe), "=|Output Stream  at level 4|=|") << "at once, instead of what was there";
    log.setStream(named("missing/file.log"));
    log.send("lost", Log::Always);
    EXPECT_EQ(content(cafe), "=|Output Stream  at level 4|=|-Level 4: Switching log to " +
                                 named("missing/file.log") + "|");
    log.setStream(named("kept") + std::string("\0.log", 5));
    log.send("lost", Log::Always);
    EXPECT_EQ(content("kept"), "content") << "the name does not end at its zero byte";
    log.setStream(&stream, false);
    log.send("back", Log::Always);
    EXPECT_EQ(written(), "back|");
    fs::remove_all(directory);
}

} // namespace
} // namespace QX
