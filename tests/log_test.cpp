#include "support.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace QX {
namespace {

namespace fs = std::filesystem;

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
        (void)now.now();
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
        log = std::move(moved); // which doesn't own the stream that log owns
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

static_assert(std::is_nothrow_move_constructible_v<Log> && std::is_nothrow_move_assignable_v<Log>);

TEST_F(LogTest, MovesHandOverTheStream) {
    Counts counts;
    auto const make = [&](char const* name) {
        Log made(log);
        made.setName(name);
        made.setStream(new Counted(counts), true);
        return made;
    };
    {
        std::vector<Log> logs;
        for (char const* const name : {"a", "b", "c", "d", "e"}) {
            logs.push_back(make(name));
        }
        logs.erase(logs.begin() + 1);
        EXPECT_EQ(counts.alive, 4);
        std::optional<Log> kept;
        kept = std::move(logs[1]);
        EXPECT_FALSE(logs[1].good());
        logs[1].send("lost", Log::Info);
        logs[1].report();
        Log& self = *kept;
        self = std::move(*kept);
        EXPECT_TRUE(kept->good());
        *kept = make("z"); // which releases the stream of c
        kept->send("shown", Log::Info);
        EXPECT_EQ(counts.alive, 4);
        kept->setStream(&stream, false);
        kept->send("named", Log::Info);
        EXPECT_EQ(written(), "z-Level 4: named|");
    }
    EXPECT_EQ(counts.alive, 0);
}

/// A buffer that keeps what is written, but for a while has no room.
struct Limited : std::stringbuf {
    std::streamsize xsputn(char const* text, std::streamsize size) override {
        return full ? 0 : std::stringbuf::xsputn(text, size);
    }
    int_type overflow(int_type c) override {
        return full ? traits_type::eof() : std::stringbuf::overflow(c);
    }

    bool full = false;
};

TEST_F(LogTest, WritesAgainAfterAFailure) {
    Limited limited;
    std::ostream target(&limited);
    log.setStream(&target, false);
    log.send("one", Log::Info);
    EXPECT_TRUE(log.good());
    limited.full = true;
    log.send("two", Log::Info);
    EXPECT_FALSE(log.good());
    log.banner();
    EXPECT_FALSE(log.good());
    limited.full = false;
    log.send(Report(Status("three", Status::Error, -1), "a.cpp", 3), Log::Info);
    EXPECT_TRUE(log.good());
    EXPECT_EQ(lines(limited.str()), "-Level 4: one|-Level 4: a.cpp(3): three|");
    log.setStream(nullptr, false);
    EXPECT_FALSE(log.good());
}

TEST_F(LogTest, FlushesWhatExplainsACrash) {
    Counts counts;
    log.setStream(new Counted(counts), true);
    Report const report(Status("lost", Status::Error, -1), "a.cpp", 3);
    log.send(report, Log::Fatal);
    EXPECT_EQ(counts.flushes, 1);
    log.send(Except(report), Log::Info);
    EXPECT_EQ(counts.flushes, 2);
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

/// A log that writes to files in a directory of the test's own.
class LogFileTest : public LogTest {
protected:
    LogFileTest() { fs::create_directory(directory); }
    ~LogFileTest() override { fs::remove_all(directory); }

    std::string named(fs::path const& name) const {
        std::u8string const whole = (directory / name).u8string();
        return std::string(whole.begin(), whole.end());
    }
    std::string content(fs::path const& name) const {
        std::ifstream in(directory / name);
        return lines({std::istreambuf_iterator<char>(in), {}});
    }

    fs::path const directory =
        fs::temp_directory_path() / ("qx_log_" + std::to_string(std::random_device()()));
};

TEST_F(LogFileTest, Switches) {
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
}

TEST_F(LogFileTest, KeepsAFileToOneLog) {
    std::string const opened = "=|Output Stream  at level 4|=|";
    Log second(log);
    {
        Log first(log);
        first.setStream(named("a.log"));
        Log copy(first);
        for (Log* const other : {&second, &copy}) {
            other->setStream(named("a.log"));
            EXPECT_FALSE(other->good());
            other->send("refused", Log::Info);
            EXPECT_FALSE(other->good());
        }
        first.send("kept", Log::Info);
        EXPECT_TRUE(first.good());
        EXPECT_EQ(content("a.log"),
                  opened + "-Level 4: Switching log to " + named("a.log") + "|-Level 4: kept|")
            << "the copy wrote that it leaves";
        first.setStream(named("./a.log"));
        EXPECT_TRUE(first.good());
        EXPECT_EQ(content("a.log"), opened) << "its own file anew";
        Log const moved(std::move(first));
        second.setStream(named("a.log"));
        EXPECT_FALSE(second.good());
    }
    second.setStream(named("a.log"));
    EXPECT_TRUE(second.good()) << "once the first log is gone";
}

} // namespace
} // namespace QX
