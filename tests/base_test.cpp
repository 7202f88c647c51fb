#include "support.h"

#include <cmath>
#include <iomanip>
#include <limits>

namespace QX {
namespace {

int sign(int number) {
    return (number > 0) - (number < 0);
}

struct Order {
    char const* left;
    char const* right;
    int exact;
    int folded;
};

Order const orders[] = {{"", "", 0, 0},           {"", "a", -1, -1},     {"a", "ab", -1, -1},
                        {"a", "A", 1, 0},         {"B", "a", -1, 1},     {"Zebra", "zebra", -1, 0},
                        {"_", "a", -1, -1},       {"_", "A", 1, -1},     {"\xc3\xa4", "z", 1, 1},
                        {"\xc4", "\xe4", -1, -1}, {"abC", "aBd", 1, -1}, {"[", "a", -1, -1}};

TEST(Str, OrdersByUnsignedByte) {
    for (Order const& row : orders) {
        SCOPED_TRACE(std::string(row.left) + " and " + row.right);
        EXPECT_EQ(sign(Str(row.left).compare(row.right, false)), row.exact);
        EXPECT_EQ(sign(Str(row.right).compare(row.left, false)), -row.exact);
        EXPECT_EQ(sign(Str(row.left).compare(row.right, true)), row.folded);
        EXPECT_EQ(sign(Str(row.right).compare(row.left, true)), -row.folded);
        EXPECT_EQ(Str(row.left) == Str(row.right), row.exact == 0);
    }
}

TEST(Str, KeepsZeroBytes) {
    Str const text(std::string("a\0b", 3));
    EXPECT_EQ(text.size(), 3U);
    EXPECT_NE(text.compare("a", false), 0);
    EXPECT_NE(text.compare(std::string("a\0c", 3), true), 0);
    EXPECT_EQ(string(text + text), std::string("a\0ba\0b", 6));
    EXPECT_EQ(written([&](std::ostream& os) { os << text; }).size(), 3U);
}

TEST(Str, IsAValue) {
    Str text("ab");
    Str const copy(text);
    text += text;
    EXPECT_STREQ(text.get(), "abab");
    EXPECT_STREQ(copy.data(), "ab");
    EXPECT_TRUE(Str().empty());
    EXPECT_TRUE(Str(static_cast<char const*>(nullptr)).empty());
    EXPECT_EQ(written([&](std::ostream& os) { os << std::setw(4) << std::setfill('.') << copy; }),
              "..ab");
}

TEST(Str, MatchesAPrefixOfALeastLength) {
    EXPECT_EQ(Str("##").comparePrefix("## 1", false, 1), 0);
    EXPECT_EQ(Str("##").comparePrefix("##", false, 2), 0);
    EXPECT_NE(Str("##").comparePrefix("##", false, 3), 0);
    EXPECT_NE(Str("##").comparePrefix("#", false, 1), 0);
    EXPECT_NE(Str("").comparePrefix("x", false, 1), 0);
    EXPECT_EQ(Str("").comparePrefix("x", false, 0), 0);
    EXPECT_NE(Str("Ab").comparePrefix("abc", false, 1), 0);
    EXPECT_EQ(Str("Ab").comparePrefix("aBc", true, 1), 0);
}

struct NumberText {
    double number;
    char const* text;
};

NumberText const numberTexts[] = {
    {0.0, "0"},      {-0.0, "-0"},        {100000, "100000"}, {-999999999999999.0, "-999999999999999"},
    {1e15, "1e+15"}, {0.1, "0.1"},        {2.5, "2.5"},       {1e-7, "1e-07"},
    {NAN, "nan"},    {-INFINITY, "-inf"}, {INFINITY, "inf"},  {5e-324, "5e-324"}};

TEST(Str, WritesNumbers) {
    for (NumberText const& row : numberTexts) {
        EXPECT_EQ(string(Str::asString(row.number)), row.text);
    }
    EXPECT_EQ(string(Str::asString(-NAN)), "nan");
    EXPECT_EQ(string(Str::asString(std::numeric_limits<int>::min())), "-2147483648");
}

TEST(Status, AppendingMakesAnError) {
    Status status;
    EXPECT_EQ(outcome(status), "Ok");
    status << "a" << Str("b") << std::string("c") << std::numeric_limits<unsigned long long>::max();
    EXPECT_EQ(outcome(status), "abc18446744073709551615");
    status.clear();
    EXPECT_EQ(outcome(status), "Ok");
    EXPECT_EQ(outcome(status << ""), "");
    EXPECT_FALSE(status.ok());
    Status warning("w", Status::Warning, 3);
    EXPECT_EQ(outcome(warning << "x"), "wx (state 1, code 3)");
    Report report;
    report << "appended";
    EXPECT_EQ(outcome(report), "appended");
}

struct Marked {
    char const* text;
    Status::State state;
    char const* marked;
};

Marked const markedTexts[] = {{"x", Status::Ok, "x"},
                              {"x", Status::Warning, "#Err: x"},
                              {"x", Status::Error, "#Err: x"},
                              {"x", Status::Critical, "#Critical: x"},
                              {"", Status::Error, "#Err: "},
                              {"#eRR: x", Status::Critical, "#eRR: x"},
                              {"#CRITICAL: x", Status::Error, "#CRITICAL: x"},
                              {"#Err:x", Status::Error, "#Err: #Err:x"}};

TEST(Status, MarkedMessageReadsBackAsAnError) {
    for (Marked const& row : markedTexts) {
        Status const status(row.text, row.state, -1);
        EXPECT_EQ(string(status.message(true)), row.marked);
        EXPECT_EQ(string(status.message(false)), row.text);
        EXPECT_EQ(Cell(status.message(true)).isA() == Cell::ErrorCell, row.state != Status::Ok);
    }
}

TEST(Report, WritesItsPlace) {
    Status const status("x", Status::Critical, 4);
    EXPECT_EQ(written([&](std::ostream& os) { Report(status, "a.cpp", -3).display(os); }),
              "a.cpp(-3): x\n");
    EXPECT_EQ(written([&](std::ostream& os) { Report(status, "", 3).display(os); }), "x\n");
    EXPECT_EQ(written([&](std::ostream& os) { Report().display(os); }), "\n");
    EXPECT_EQ(outcome(Report(status, "a.cpp", 3)), "x (state 3, code 4)");
}

std::string show(AnalyticDouble const& value) {
    return written([&](std::ostream& os) { os << value << (value.isValid() ? "" : " not valid"); });
}

TEST(AnalyticDouble, CarriesValidityThroughArithmetic) {
    AnalyticDouble const six = number(6);
    AnalyticDouble const bad = number(4, false);
    EXPECT_EQ(show(six + number(4)), "10");
    EXPECT_EQ(show(six - number(4)), "2");
    EXPECT_EQ(show(six * number(4)), "24");
    EXPECT_EQ(show(six / number(4)), "1.5");
    EXPECT_EQ(show(six / number(-0.0)), "0 not valid");
    for (AnalyticDouble const& result :
         {six + bad, bad + six, six - bad, bad - six, six * bad, bad * six, six / bad, bad / six}) {
        EXPECT_EQ(show(result), "0 not valid");
    }
    EXPECT_EQ(show(bad), "4 not valid");
    EXPECT_EQ(show(AnalyticDouble()), "0 not valid");
    EXPECT_EQ(show(AnalyticDouble(1, 4)), "0.25");
    EXPECT_EQ(show(AnalyticDouble(1, 0)), "0 not valid");
    EXPECT_EQ(AnalyticDouble(std::numeric_limits<int>::min(), -1).get(), 2147483648.0);
}

} // namespace
} // namespace QX
