#include "qx/table.h"
#include "qx/tblpath.h"

#include <gtest/gtest.h>

#include <chrono>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <utility>

using QX::Status;
using QX::Str;
using QX::Table;
using QX::TblPath;

namespace {

constexpr std::size_t npos = Table::npos;

std::string text(Str const& str) {
    return {str.data(), str.size()};
}

/// A step as "name|item", with "-" for npos; or the message of a failure that did as it should.
std::string told(Status const& status, Str const& name, std::size_t item) {
    if (status.ok()) {
        return text(name) + "|" + (item == npos ? "-" : std::to_string(item));
    }
    EXPECT_EQ(status.state(), Status::Error);
    EXPECT_EQ(status.code(), -1);
    EXPECT_EQ(text(name), "untouched");
    EXPECT_EQ(item, npos);
    return text(status.message(false));
}

std::string first(TblPath const& path, bool last = false) {
    Str name("untouched");
    std::size_t item = 77;
    Status const status = path.currentPath(name, item, last);
    return told(status, name, item);
}

std::string final(TblPath const& path) {
    Str name("untouched");
    std::size_t item = 77;
    Status const status = path.finalPath(name, item);
    return told(status, name, item);
}

std::string rest(TblPath const& path) {
    Str out("untouched");
    EXPECT_TRUE(path.nextPath(out).ok());
    return text(out);
}

struct Steps {
    char const* path;
    char const* first;
    char const* rest;
    char const* last;
};

Steps const steps[] = {
    {"rates[3]/eur", "rates|3", "eur", "eur|-"},
    {"a/b[2]", "a|-", "b[2]", "b|2"},
    {"//a//b", "a|-", "/b", "b|-"},
    {"a/", "a|-", "", "|-"},
    {"[2]", "|2", "", "|2"},
    {"", "|-", "", "|-"},
    {"///", "|-", "", "|-"},
    {"rates[x]", "Invalid format Xpath rates[x]", "", "Invalid format Xpath rates[x]"},
    {"x[]/y[", "Invalid format Xpath x[]", "y[", "Invalid format Xpath y["},
    {"rates[3", "rates|3", "", "rates|3"},
    {"rates[ 3,4]x/y", "rates|3", "y", "y|-"},
    {"a]b[12]", "a]b|1", "", "a]b|1"}, // cut to the one character before the first "]"
    {"]a[12]", "Invalid format Xpath ]a[12]", "", "Invalid format Xpath ]a[12]"},
    {"a[-1]", "a|-", "", "a|-"},
};

TEST(TblPath, ReadsFirstAndLastStep) {
    for (Steps const& row : steps) {
        SCOPED_TRACE(row.path);
        TblPath const path{Str(row.path)};
        EXPECT_EQ(first(path), row.first);
        EXPECT_EQ(rest(path), row.rest);
        EXPECT_EQ(final(path), row.last);
    }
}

TEST(TblPath, LeavesTheLastStepOnRequest) {
    EXPECT_EQ(first(TblPath("/"), true), "final table");
    EXPECT_EQ(first(TblPath("b[x]"), true), "final table");
    EXPECT_EQ(first(TblPath("a[x]/b"), true), "Invalid format Xpath a[x]");
    EXPECT_EQ(first(TblPath("a[1]/b"), true), "a|1");
    EXPECT_EQ(first(TblPath("a/"), true), "a|-");
}

TEST(TblPath, RebuildsPaths) {
    struct Row {
        char const* path;
        char separator;
        char const* stripped;
        char const* parent;
    };
    for (Row const& row :
         {Row{"a[1]/b[2]/c", '/', "/a/b/c", "/a[1]/b[2]"},
          {"a[x]/b", '/', "//b", "/[18446744073709551615]"},
          {"a[4]", '/', "/a", "/a[4]"},
          {"a/b", '/', "/a/b", "/a[18446744073709551615]"},
          {"a[1]/b[2]/", '/', "/a/b", "/a[1]"},
          {"a[1]/b[2]//", '/', "/a/b/", "/a[1]/b[2]"},
          {"a[1]//b/", '/', "/a/b", "/a[1]"},
          {"a[1]//", '/', "/a/", "/a[1]"},
          {"a[1]/b[x]/c/d", '/', "/a//c/d", "/a[1]/[18446744073709551615]/c[18446744073709551615]"},
          {"", '/', "/", "/[18446744073709551615]"},
          {".a[1].b/[2].c", '.', ".a.b/.c", ".a[1].b/[2]"}}) {
        SCOPED_TRACE(row.path);
        TblPath const path(row.path, row.separator);
        EXPECT_EQ(text(path.stripPath()), row.stripped);
        EXPECT_EQ(text(path.parent()), row.parent);
    }
}

TEST(TblPath, MovesByCopying) {
    TblPath source("a.b", '.');
    TblPath const moved(std::move(source));
    EXPECT_EQ(text(moved.stripPath()), ".a.b");
    EXPECT_EQ(text(source.stripPath()), ".a.b");
    TblPath target("x");
    target = std::move(source);
    EXPECT_EQ(text(target.stripPath()), ".a.b");
    EXPECT_EQ(text(source.stripPath()), ".a.b");
}

std::string randomText(std::mt19937& random, std::string const& alphabet, std::size_t longest) {
    std::string made(random() % (longest + 1), ' ');
    for (char& c : made) {
        c = alphabet[random() % alphabet.size()];
    }
    return made;
}

bool extract(std::string const& digits, std::size_t& item) {
    std::istringstream in(digits);
    in.imbue(std::locale::classic());
    return static_cast<bool>(in >> item);
}

TEST(TblPath, ReadsNumbersAsStreamsDo) {
    std::mt19937 random(1);
    std::string numbers[20'000] = {"18446744073709551615",
                                   "18446744073709551616",
                                   "-18446744073709551615",
                                   "-0",
                                   "-18446744073709551616",
                                   "000000000000000000000012",
                                   "+5",
                                   "+ 5",
                                   "+-5",
                                   "\t\n\v\f\r 5",
                                   "0x1f",
                                   "1e3"};
    for (std::string& number : numbers) {
        if (number.empty()) {
            number = randomText(random, "0189 +-\tx,.", 4) + randomText(random, "0189", 22);
        }
        SCOPED_TRACE(number);
        std::size_t item = 0;
        bool const readable = extract(number, item);
        std::string const step = "n[" + number + "]";
        ASSERT_EQ(first(TblPath(Str(step))),
                  readable ? told(Status(), "n", item) : "Invalid format Xpath " + step);
    }
}

/// The rules told step by step and without regard to cost.
std::string strip(TblPath const& path) {
    Str name;
    std::size_t item = 0;
    path.currentPath(name, item, false);
    return std::string("/") + text(name) + (rest(path).empty() ? "" : strip(TblPath(Str(rest(path)))));
}

std::string parent(TblPath const& path, std::string const& left) {
    Str name;
    std::size_t item = 0;
    path.currentPath(name, item, false);
    TblPath const next{Str(left)};
    std::string const written = std::string("/") + text(name) + "[" + std::to_string(item) + "]";
    return written + (rest(next).empty() ? "" : parent(next, rest(next)));
}

TEST(TblPath, RebuildsAsToldStepByStep) {
    std::mt19937 random(2);
    for (int i = 0; i < 30'000; ++i) {
        std::string const whole = randomText(random, i % 2 == 0 ? "ab[]12 /-" : "a[1]//", 14);
        SCOPED_TRACE(whole);
        TblPath const path{Str(whole)};
        ASSERT_EQ(text(path.stripPath()), strip(path));
        ASSERT_EQ(text(path.parent()), parent(path, rest(path)));
    }
}

TEST(TblPath, RebuildsLongPathsInLinearTime) {
    constexpr std::size_t count = 1'000'000;
    std::string whole;
    for (std::size_t i = 0; i < count; ++i) {
        whole += "a[1]/";
    }
    TblPath const path{Str(whole)};
    auto const start = std::chrono::steady_clock::now();
    EXPECT_EQ(path.stripPath().size(), 2 * count);
    EXPECT_EQ(path.parent().size(), 5 * (count - 1));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

} // namespace
