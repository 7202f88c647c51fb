#include "brief.h"

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <locale>
#include <random>

namespace QX {
namespace {

using Random = std::mt19937_64;

std::size_t below(Random& random, std::size_t bound) {
    return static_cast<std::size_t>(random() % bound);
}

/// A finite double of any magnitude; every fourth is subnormal.
double anyDouble(Random& random) {
    std::uint64_t bits = random();
    if (bits % 4 == 0) {
        bits &= ~(std::uint64_t{0x7ff} << 52);
    }
    double const value = std::bit_cast<double>(bits);
    return std::isfinite(value) ? value : 1.5;
}

template <typename Float>
std::string scientific(Float value, int precision) {
    return written([&](std::ostream& os) {
        os.imbue(std::locale::classic());
        os << std::scientific << std::setprecision(precision) << value;
    });
}

/// Two ints behind `skipped` characters, as a stream reads them.
bool streamReadsPair(std::string const& text, std::size_t skipped, int& first, int& second) {
    if (text.size() < skipped) {
        return false;
    }
    std::istringstream in(text.substr(skipped));
    in.imbue(std::locale::classic());
    return (in >> first >> second) && in.eof();
}

/// What streams make of a text: the meaning that the library reads without one.
AnalyticDouble streamReads(std::string const& text) {
    int a = 0;
    int b = 0;
    if (text.starts_with("##")) {
        bool const read = streamReadsPair(text, 3, a, b);
        std::uint64_t const high = static_cast<std::uint32_t>(b);
        return read ? number(std::bit_cast<double>(high << 32U | static_cast<std::uint32_t>(a)))
                    : AnalyticDouble();
    }
    if (text.starts_with("[Numeric]")) {
        return streamReadsPair(text, 10, a, b) ? AnalyticDouble(a, b) : AnalyticDouble();
    }
    std::istringstream in(text);
    in.imbue(std::locale::classic());
    double value = 0;
    return (in >> value) && in.eof() ? number(value) : AnalyticDouble();
}

testing::AssertionResult readsAsStreamsDo(std::string const& text) {
    AnalyticDouble const expected = streamReads(text);
    AnalyticDouble read;
    (void)Cell(Str(text)).get(read);
    if (read.isValid() == expected.isValid() &&
        std::bit_cast<std::uint64_t>(read.get()) == std::bit_cast<std::uint64_t>(expected.get())) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << testing::PrintToString(text) << " reads as " << scientific(read.get(), 17) << " ("
           << read.isValid() << "), not as " << scientific(expected.get(), 17) << " ("
           << expected.isValid() << ")";
}

std::string randomText(Random& random, std::string const& alphabet, std::size_t longest) {
    std::string text(below(random, longest + 1), ' ');
    for (char& c : text) {
        c = alphabet[below(random, alphabet.size())];
    }
    return text;
}

/// Changes, removes or inserts one character.
std::string damaged(Random& random, std::string text) {
    using namespace std::string_literals;
    static std::string const marks = " \t\n\v\f\r+-.,0123456789eEdxXpinfNa#\0\xa0"s;
    char const mark = marks[below(random, marks.size())];
    std::size_t const place = below(random, text.size());
    std::size_t const way = below(random, 3);
    text.replace(place, way == 0 ? 0 : 1, way == 1 ? 0 : 1, mark);
    return text;
}

void readEverything(int rounds) {
    Random random(20250101);
    for (int round = 0; round < rounds; ++round) {
        double const value = anyDouble(random);
        std::string const text = scientific(value, static_cast<int>(below(random, 25)));
        ASSERT_TRUE(readsAsStreamsDo(text));
        ASSERT_TRUE(readsAsStreamsDo(damaged(random, text)));
        ASSERT_TRUE(readsAsStreamsDo(string(Str::asString(value))));
        ASSERT_TRUE(readsAsStreamsDo(randomText(random, " \t\n\v\f\r+-..0129eE", 9)));
        ASSERT_TRUE(readsAsStreamsDo("## " + randomText(random, " \t+-0017x,", 14)));
        std::string const exact = printed(Cell(value));
        ASSERT_TRUE(readsAsStreamsDo(exact));
        ASSERT_TRUE(readsAsStreamsDo(damaged(random, exact)));
        std::string const ratio = "[Numeric] " + std::to_string(static_cast<int>(random())) + " " +
                                  std::to_string(static_cast<int>(random() % 7) - 3);
        ASSERT_TRUE(readsAsStreamsDo(ratio));
        ASSERT_TRUE(readsAsStreamsDo(damaged(random, ratio)));
    }
}

TEST(NumberText, ReadsWhatStreamsRead) {
    readEverything(40000);
}

TEST(NumberText, RoundsAsStreamsDo) {
    Random random(7);
    for (int round = 0; round < 3000; ++round) {
        double const value = std::fabs(anyDouble(random));
        long double const sum = static_cast<long double>(value) + std::nextafter(value, INFINITY);
        std::string const tie = scientific(sum / 2, 800);
        std::size_t const mark = tie.find('e');
        ASSERT_TRUE(readsAsStreamsDo(tie));
        ASSERT_TRUE(readsAsStreamsDo(tie.substr(0, mark) + "1" + tie.substr(mark)));
        ASSERT_TRUE(readsAsStreamsDo(scientific(sum / 2, 20 + static_cast<int>(below(random, 80)))));
    }
}

TEST(NumberText, ReadsHundredsOfDigits) {
    Random random(11);
    for (int round = 0; round < 5000; ++round) {
        std::string text =
            randomText(random, "0123456789", 400) + "." + randomText(random, "00123456789", 400);
        text = (round % 2 == 0 ? "-" : "") + std::string(below(random, 300), '0') + text;
        ASSERT_TRUE(readsAsStreamsDo(text));
        ASSERT_TRUE(
            readsAsStreamsDo(text + "e" + std::to_string(static_cast<int>(below(random, 1600)) - 800)));
    }
}

TEST(NumberText, ReadsTheEdgesOfTheRange) {
    std::string const zeros(400, '0');
    std::istringstream words(R"(
        1.7976931348623157e308 1.7976931348623158e308 1.7976931348623159e308 -1.797693134862315807e308
        4.9406564584124654e-324 2.4703282292062328e-324 2.4703282292062327e-324 -1e-325
        2.2250738585072011e-308 1e99999999999999999999 1e9223372036854775807 10e-9223372036854775808
        0e99999999999999999999 0.0e400 1e 1e+ 1e- 1e5e5 e5 .e5 . + +-1 1d5 1.5.5 infinity nan(1) 0x1p3
        1'000 ## 1Z .Z Z. 1Ze-400 0.Z1 0.Z1e401 -0.Z1e-99999999999999999999 1Ze-99999999999999999999
    )"); // Z stands for four hundred zeros
    for (std::string word; words >> word;) {
        if (std::size_t const at = word.find('Z'); at != std::string::npos) {
            word.replace(at, 1, zeros);
        }
        EXPECT_TRUE(readsAsStreamsDo(word));
    }
    std::string const halfPastGreatest = written(
        [](std::ostream& os) { os << std::fixed << std::ldexp(1.0L, 1024) - std::ldexp(1.0L, 970); });
    for (std::string const& text : {halfPastGreatest, "\xa0" + std::string("1"), std::string("## 1-2"),
                                    std::string("## 2147483648 0"), std::string("## 1 2\0", 7),
                                    std::string("## -2147483648 2147483647")}) {
        EXPECT_TRUE(readsAsStreamsDo(text));
    }
}

/// A comma for the point and grouped thousands, as half of the world writes numbers.
struct CommaPoint : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// Makes the process write and read numbers the other way while it lives.
struct CommaLocale {
    CommaLocale() : before(std::locale::global(std::locale(std::locale::classic(), new CommaPoint))) {
        std::setlocale(LC_ALL, "de_DE.UTF-8"); // what C functions use, where the system has it
    }
    CommaLocale(CommaLocale const&) = delete;
    CommaLocale& operator=(CommaLocale const&) = delete;
    ~CommaLocale() {
        std::locale::global(before);
        std::setlocale(LC_ALL, "C");
    }

    std::locale before;
};

void writeEverything(int rounds) {
    Random random(3);
    for (int round = 0; round < rounds; ++round) {
        double const scale = std::pow(10.0, static_cast<double>(below(random, 40)) - 10);
        double const value =
            round % 3 == 0 ? anyDouble(random) : scale * static_cast<double>(random()) / 1e19;
        int const precision = 1 + static_cast<int>(below(random, 30));
        std::string const asString = string(Str::asString(value));
        std::ostringstream fixed;
        fixed.imbue(std::locale::classic());
        fixed << std::fixed << std::setprecision(precision) << value;
        int whole = 0;
        bool const isWhole = Cell(value).get(whole).ok();
        ASSERT_EQ(text(Cell(value), precision), isWhole ? asString : fixed.str());
        ASSERT_EQ(text(Cell(value), 0), asString);
        ASSERT_EQ(streamReads(asString).get(), value);
        ASSERT_LE(asString.size(), scientific(value, 16).size());
        if (!isWhole) {
            ASSERT_TRUE(readsAsStreamsDo(text(Cell(value), -1)));
            ASSERT_EQ(streamReads(text(Cell(value), -1)).get(), value);
        }
    }
}

TEST(NumberText, WritesWhatStreamsWrite) {
    writeEverything(40000);
}

TEST(NumberText, IsTheSameInEveryLocale) {
    CommaLocale const comma;
    ASSERT_EQ(written([](std::ostream& os) { os << 1234.5; }), "1.234,5");
    readEverything(2000);
    writeEverything(2000);
    EXPECT_EQ(Cell("1,5").isA(), Cell::StringCell);
    EXPECT_EQ(Cell("1.000.000").isA(), Cell::StringCell);
    EXPECT_EQ(text(Cell(1234567)), "1234567");
    EXPECT_EQ(text(Cell(1234.5), 2), "1234.50");
    EXPECT_EQ(text(Cell(12.5), -1), "## 0 1076428800");
    EXPECT_EQ(outcome(Status() << 1234567ULL), "1234567");
    EXPECT_EQ(string(Str::asString(1234567)), "1234567");
    EXPECT_EQ(Date("1970-01-13", "").days(), 12);
}

/// Rows of "cell ; precision ; text".
TEST(NumberText, PrecisionChoosesTheForm) {
    for (Row const& row : rows(R"(
        2.5 ; 2 ; 2.50
        2.5 ; 0 ; 2.5
        2.5 ; -1 ; ## 0 1074003968
        2.5 ; -2 ; 2.5
        3 ; 2 ; 3
        3 ; -1 ; 3
        3e9 ; -1 ; ## -1073741824 1105615371
        3e9 ; 1 ; 3000000000.0
        -0.25 ; 1 ; -0.2
        0.1 ; 20 ; 0.10000000000000000555
        inf ; 2 ; inf
        2.0000000000000004 ; 3 ; 2.0000000000000004
        ?2.5 ; 0 ; 2.5
        ?2.5 ; 1 ; NULL
        ?2.5 ; -1 ; NULL
        ?3 ; -2 ; NULL
        abc ; -1 ; abc
        - ; 3 ;
        !x ; 3 ; #Err: x
    )")) {
        Cell cell;
        std::istringstream(row[0]) >> cell;
        EXPECT_EQ(text(cell, std::stoi(row[1])), row[2]) << row.line;
    }
    EXPECT_EQ(text(Cell(-1e300), 30),
              written([](std::ostream& os) { os << std::fixed << std::setprecision(30) << -1e300; }));
}

} // namespace
} // namespace QX
