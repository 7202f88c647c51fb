#include "sibling.h"

#include <qxbase/analyticdouble.h>
#include <qxbase/report.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iomanip>
#include <limits>

namespace QX {
namespace {

TEST(Str, OrdersByUnsignedByte) {
    std::istringstream in("\"\" < a <   a < ab <   a > A =   B < a >   _ < a <   _ > A <   [ < a <   "
                          "\xc3\xa4 > z >   \xc4 < \xe4 <   abC > aBd <   a = a =");
    auto const sign = [](int order) { return std::string(order < 0 ? "<" : order > 0 ? ">" : "="); };
    for (std::string a, exact, b, folded; in >> a >> exact >> b >> folded;) {
        Str const left(a == "\"\"" ? "" : a);
        EXPECT_EQ(sign(left.compare(b, false)), exact) << a << ' ' << b;
        EXPECT_EQ(sign(-Str(b).compare(left, false)), exact) << a << ' ' << b;
        EXPECT_EQ(sign(left.compare(b, true)), folded) << a << ' ' << b;
        EXPECT_EQ(left == Str(b), exact == "=") << a << ' ' << b;
    }
}

TEST(Str, KeepsBytes) {
    Str const zero(std::string("a\0b", 3));
    EXPECT_NE(zero.compare(std::string("a\0c", 3), true), 0);
    EXPECT_EQ(string(zero + zero), std::string("a\0ba\0b", 6));
    EXPECT_EQ(written([&](std::ostream& os) { os << zero; }).size(), 3U);
    EXPECT_TRUE(Str(static_cast<char const*>(nullptr)).empty());
    Str twice("ab");
    twice += twice;
    EXPECT_EQ(written([&](std::ostream& os) { os << std::setw(6) << std::setfill('.') << twice; }),
              "..abab");
}

TEST(Str, MatchesAPrefixOfALeastLength) {
    EXPECT_EQ(Str("##").comparePrefix("## 1", false, 1), 0);
    EXPECT_NE(Str("##").comparePrefix("##", false, 3), 0);
    EXPECT_NE(Str("").comparePrefix("x", false, 1), 0);
    EXPECT_EQ(Str("").comparePrefix("x", false, 0), 0);
    EXPECT_NE(Str("Ab").comparePrefix("abc", false, 1), 0);
    EXPECT_EQ(Str("Ab").comparePrefix("aBc", true, 1), 0);
}

TEST(Str, WritesNumbers) {
    std::string const texts = "0 -0 100000 -999999999999999 1e+15 0.1 2.5 1e-07 nan -inf inf 5e-324";
    std::istringstream in(texts);
    std::string all;
    for (std::string number; in >> number;) {
        all += (all.empty() ? "" : " ") + string(Str::asString(std::strtod(number.c_str(), nullptr)));
    }
    EXPECT_EQ(all, texts);
    EXPECT_EQ(string(Str::asString(-NAN)), "nan");
    EXPECT_EQ(string(Str::asString(std::numeric_limits<int>::min())), "-2147483648");
}

TEST(Status, AppendingMakesAnError) {
    Status status;
    status << "a" << Str("b") << std::string("c") << std::numeric_limits<unsigned long long>::max();
    EXPECT_EQ(outcome(status), "abc18446744073709551615");
    Status numbers;
    numbers << 0 << "," << -1 << "," << std::numeric_limits<long long>::min() << "," << std::uint8_t(65)
            << "," << std::size_t(12) << "," << Status::Critical;
    EXPECT_EQ(outcome(numbers), "0,-1,-9223372036854775808,65,12,3");
    status.clear();
    EXPECT_EQ(outcome(status), "Ok");
    EXPECT_EQ(outcome(status << ""), "");
    EXPECT_FALSE(status.ok());
    Status warning("w", Status::Warning, 3);
    EXPECT_EQ(outcome(warning << "x"), "wx (state 1, code 3)");
}

TEST(Status, OfALiteralIsLikeAnyOther) {
    Status status = Status::ofLiteral("text", Status::Critical, -1);
    Status const copy(status);
    EXPECT_EQ(string(copy.message(true)), "#Critical: text");
    EXPECT_EQ(outcome(status << " and more"), "text and more (state 3, code -1)");
    EXPECT_EQ(outcome(copy), "text (state 3, code -1)");
    status = copy;
    EXPECT_EQ(outcome(status), outcome(copy));
    status.clear();
    EXPECT_EQ(outcome(status), "Ok");
}

TEST(Status, MarksItsMessage) {
    struct Marked {
        char const* text;
        Status::State state;
        char const* message;
    };
    Marked const messages[] = {
        {"x", Status::Ok, "x"},
        {"x", Status::Warning, "#Err: x"},
        {"x", Status::Error, "#Err: x"},
        {"x", Status::Critical, "#Critical: x"},
        {"#eRR: x", Status::Critical, "#eRR: x"},
        {"#CRITICAL: x", Status::Error, "#CRITICAL: x"},
        {"#Err:x", Status::Error, "#Err: #Err:x"},
    };
    for (Marked const& row : messages) {
        Status const status(row.text, row.state, -1);
        EXPECT_EQ(string(status.message(true)), row.message);
        EXPECT_EQ(string(status.message(false)), row.text);
    }
}

TEST(Report, WritesItsPlace) {
    Status const status("x", Status::Critical, 4);
    auto const display = [](Report const& report) {
        return written([&](std::ostream& os) { report.display(os); });
    };
    EXPECT_EQ(display(Report(status, "a.cpp", -3)), "a.cpp(-3): x\n");
    EXPECT_EQ(written([&](std::ostream& os) { os << Report(status, "a.cpp", -3) << status; }),
              "a.cpp(-3): x\n#Critical: x");
    EXPECT_EQ(display(Report(status, "", 3)), "x\n");
    EXPECT_EQ(written([&](std::ostream& os) {
                  os << std::hex << std::showbase << std::setw(8);
                  Report(status, "a.cpp", 1234).display(os);
              }),
              "   a.cpp(1234): x\n");
    EXPECT_EQ(outcome(Report(status, "a.cpp", 3)), "x (state 3, code 4)");
}

TEST(AnalyticDouble, CarriesValidityThroughArithmetic) {
    AnalyticDouble const six(6, 1);
    AnalyticDouble bad(4, 1);
    bad.valid = false;
    EXPECT_EQ((six / AnalyticDouble(4, 1)).get(), 1.5);
    EXPECT_TRUE((six / AnalyticDouble(4, 1)).isValid());
    for (AnalyticDouble const& result :
         {six + bad, bad + six, six - bad, bad - six, six * bad, bad * six, six / bad, bad / six,
          six / (six - six), AnalyticDouble(1, 0)}) {
        EXPECT_EQ(result.get(), 0);
        EXPECT_FALSE(result.isValid());
    }
    EXPECT_EQ(AnalyticDouble(std::numeric_limits<int>::min(), -1).get(), 2147483648.0);
}

} // namespace
} // namespace QX
