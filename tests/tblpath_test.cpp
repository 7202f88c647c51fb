#include "brief.h"
#include "growth.h"

#include <random>
#include <utility>

namespace QX {
namespace {

/// A step as `read` gives it, "name|item", with "-" for npos; or the message of a failure that did as it
/// should.
template <typename Read>
std::string told(Read const& read) {
    Str name("untouched");
    std::size_t item = 77;
    Status const status = read(name, item);
    if (status.ok()) {
        return string(name) + "|" + (item == Table::npos ? "-" : std::to_string(item));
    }
    EXPECT_EQ(string(name), "untouched");
    EXPECT_EQ(item, Table::npos);
    return outcome(status);
}

std::string first(TblPath const& path, bool last = false) {
    return told([&](Str& name, std::size_t& item) { return path.currentPath(name, item, last); });
}

std::string final(TblPath const& path) {
    return told([&](Str& name, std::size_t& item) { return path.finalPath(name, item); });
}

std::string rest(TblPath const& path) {
    Str out("untouched");
    EXPECT_TRUE(path.nextPath(out).ok());
    return string(out);
}

/// Rows of "path ; first step ; rest ; last step".
TEST(TblPath, ReadsFirstAndLastStep) {
    for (Row const& row : rows(R"(
        rates[3]/eur ; rates|3 ; eur ; eur|-
        a/b[2] ; a|- ; b[2] ; b|2
        //a//b ; a|- ; /b ; b|-
        a/ ; a|- ; ; |-
        [2] ; |2 ; ; |2
        ; |- ; ; |-
        rates[x] ; Invalid format Xpath rates[x] ; ; Invalid format Xpath rates[x]
        x[]/y[ ; Invalid format Xpath x[] ; y[ ; Invalid format Xpath y[
        rates[ 3,4]x/y[3 ; rates|3 ; y[3 ; y|3
        a]b[12] ; a]b|1 ; ; a]b|1   <- cut to the one character before the first "]"
        ]a[12] ; Invalid format Xpath ]a[12] ; ; Invalid format Xpath ]a[12]
        a[-1] ; a|- ; ; a|-
    )")) {
        SCOPED_TRACE(row.line);
        TblPath const path{Str(row[0])};
        EXPECT_EQ(first(path), row[1]);
        EXPECT_EQ(rest(path), row[2]);
        EXPECT_EQ(final(path), row[3]);
    }
    EXPECT_EQ(first(TblPath("/"), true), "final table");
    EXPECT_EQ(first(TblPath("b[x]"), true), "final table");
    EXPECT_EQ(first(TblPath("a[x]/b"), true), "Invalid format Xpath a[x]");
    EXPECT_EQ(first(TblPath("a[1]/"), true), "a|1");
}

/// Rows of "path ; stripped ; parent".
TEST(TblPath, RebuildsPaths) {
    for (Row const& row : rows(R"(
        a[1]/b[2]/c ; /a/b/c ; /a[1]/b[2]
        a[x]/b ; //b ; /[18446744073709551615]
        a[1]/b[2]/ ; /a/b ; /a[1]
        a[1]/b[x]/c/d ; /a//c/d ; /a[1]/[18446744073709551615]/c[18446744073709551615]
        ; / ; /[18446744073709551615]
    )")) {
        SCOPED_TRACE(row.line);
        TblPath const path{Str(row[0])};
        EXPECT_EQ(string(path.stripPath()), row[1]);
        EXPECT_EQ(string(path.parent()), row[2]);
    }
}

TEST(TblPath, MovesByCopying) {
    TblPath source(".a[1].b/[2].c", '.');
    TblPath const moved(std::move(source));
    TblPath target("x");
    target = std::move(source);
    for (TblPath const& path : {moved, source, target}) {
        EXPECT_EQ(string(path.stripPath()) + " " + string(path.parent()), ".a.b/.c .a[1].b/[2]");
    }
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
    std::istringstream edges("18446744073709551615 18446744073709551616 -18446744073709551615 "
                             "-18446744073709551616 000000000000000000000012 0x1f 1e3");
    for (int i = 0; i < 20'000; ++i) {
        std::string number;
        if (!(edges >> number)) {
            number = randomText(random, "0189 +-\t\n\v\f\rx,.", 4) + randomText(random, "0189", 22);
        }
        SCOPED_TRACE(number);
        std::size_t item = 0;
        bool const readable = extract(number, item);
        std::string const step = "n[" + number + "]";
        ASSERT_EQ(first(TblPath(Str(step))),
                  readable ? "n|" + (item == Table::npos ? "-" : std::to_string(item))
                           : "Invalid format Xpath " + step);
    }
}

/// The rules told step by step and without regard to cost.
std::string strip(TblPath const& path) {
    Str name;
    std::size_t item = 0;
    (void)path.currentPath(name, item, false);
    return std::string("/") + string(name) + (rest(path).empty() ? "" : strip(TblPath(Str(rest(path)))));
}

std::string parent(TblPath const& path, std::string const& left) {
    Str name;
    std::size_t item = 0;
    (void)path.currentPath(name, item, false);
    TblPath const next{Str(left)};
    std::string const written = std::string("/") + string(name) + "[" + std::to_string(item) + "]";
    return written + (rest(next).empty() ? "" : parent(next, rest(next)));
}

TEST(TblPath, RebuildsAsToldStepByStep) {
    std::mt19937 random(2);
    for (int i = 0; i < 30'000; ++i) {
        std::string const whole = randomText(random, i % 2 == 0 ? "ab[]12 /-" : "a[1]//", 14);
        SCOPED_TRACE(whole);
        TblPath const path{Str(whole)};
        ASSERT_EQ(string(path.stripPath()), strip(path));
        ASSERT_EQ(string(path.parent()), parent(path, rest(path)));
    }
}

TEST(TblPath, RebuildsLongPathsInLinearTime) {
    expectLinearTime(5'000, [](std::size_t count) {
        std::string whole;
        for (std::size_t i = 0; i < count; ++i) {
            whole += "a[1]/";
        }
        TblPath const path{Str(whole)};
        EXPECT_EQ(path.stripPath().size(), 2 * count);
        EXPECT_EQ(path.parent().size(), 5 * (count - 1));
    });
}

} // namespace
} // namespace QX
