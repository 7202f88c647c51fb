#include "qxtab/evaluate.h"
#include "qxtab/expression.h"
#include "qxtab/failure.h"
#include "qxtab/numbers.h"
#include "qxtab/pattern.h"
#include "qxtab/utf8.h"

#include <qx/text.h>

#include <gtest/gtest.h>
#include <string>

namespace qxtab {
namespace {

Data oneRow() {
    QX::Ptr<QX::Table> const table(new QX::Table(QX::Str("row")));
    for (auto const& [name, value] :
         {std::pair("n", "12.50"), std::pair("m", "3"), std::pair("code", "007"),
          std::pair("word", "Straße"), std::pair("none", ""), std::pair("unit price", "2"),
          std::pair("and", "x")}) {
        addColumn(*table, name, {*value == '\0' ? QX::Cell() : QX::textCell(value)});
    }
    return withTypes(table, {}, "row");
}

std::string valueOf(std::string const& text) {
    Data const data = oneRow();
    Expression const expression = readExpression(text);
    return textOf(Evaluator(expression, data).cellAt(1));
}

struct Computed {
    char const* expression;
    char const* value;
};

Computed const computed[] = {
    {"n", "12.50"},
    {"n + 0", "12.5"},
    {"1 + 2 * 3 - 4 / 2", "5"},
    {"(1 + 2) * -3", "-9"},
    {"10 - 2 - 3", "5"},
    {"2 - -2", "4"},
    {"7 % 4 & \"x\"", "3x"},
    {"n / 0", ""},
    {"word + 1", ""},
    {"none * 2", ""},
    {"{unit price} * 2", "4"},
    {"n = 12.5", "TRUE"},
    {"n == \"12.5\"", "FALSE"},
    {"n > m", "TRUE"},
    {"n < 100 and m >= 3 and not (m != 3)", "TRUE"},
    {"code == 7", "TRUE"},
    {"code == \"7\"", "FALSE"},
    {"code < word", "TRUE"},
    {"word > 1 or word <= 1", "FALSE"},
    {"word != 1", "TRUE"},
    {"none == \"\" and empty(none) and none != 0", "TRUE"},
    {"none < 1 or none >= 1", "FALSE"},
    {"1 or 0 and 0", "TRUE"},
    {"not 0 = 1", "TRUE"},
    {"{and} = 'x'", "TRUE"},
    {"\"say \"\"a\"\"\"", "say \"a\""},
    {"prefix(word, \"Str\") and suffix(word, 'e') and contains(word, 'aß')", "TRUE"},
    {"length(word)", "6"},
    {"upper(\"abc\") & lower(\"ÄB\") & trim(\" x \")", "ABCÄbx"},
    {"replace(\"aXbX\", \"X\", \"--\")", "a--b--"},
    {"round(2.345, 2) & \" \" & round(-2.5) & \" \" & floor(-0.5) & \" \" & ceil(1.2)", "2.35 -3 -1 2"},
    {"min(3, n, none) & max(3, n)", "312.5"},
    {"if(n > 10, code, 1 / 0)", "007"},
    {"number(code) and not number(word)", "TRUE"},
    {"1e+3 + .5", "1000.5"},
};

TEST(Expression, ComesToItsValue) {
    for (Computed const& row : computed) {
        SCOPED_TRACE(row.expression);
        EXPECT_EQ(valueOf(row.expression), row.value);
    }
}

struct Wrong {
    char const* expression;
    char const* message; ///< its beginning
};

Wrong const wrong[] = {
    {"", "column 1 of '': the end was not expected"},
    {"n >", "column 4"},
    {"n > > 1", "column 5"},
    {"(n", "column 3"},
    {"n)", "column 2"},
    {"ä == 'x", "column 6"},
    {"1 = 2 = 3", "column 7"},
    {"a ! b", "column 3"},
    {"0E8 = code", "column 1"},
    {"f(1)", "column 1"},
    {"1 + round()", "column 5"},
    {"round(1,2", "column 10"},
    {"not", "column 4"},
    {"and", "column 1"},
    {"matches(a, '[')", "column 1"},
};

TEST(Expression, TellsTheColumnOfAMistake) {
    for (Wrong const& row : wrong) {
        SCOPED_TRACE(row.expression);
        try {
            readExpression(row.expression);
            ADD_FAILURE() << "no exception";
        } catch (Misuse const& e) {
            EXPECT_EQ(std::string(e.what()).rfind(row.message, 0), 0U) << e.what();
        }
    }
}

TEST(Expression, IsNestedSoFarOnly) {
    std::string const many(100'000, '(');
    EXPECT_THROW(readExpression(many), Misuse);
    EXPECT_THROW(readExpression(std::string(100'000, '-')), Misuse);
    std::string alternatives = "n = 1";
    for (int k = 0; k < 10'000; ++k) {
        alternatives += " or n = 12.5";
    }
    EXPECT_EQ(valueOf(alternatives), "TRUE");
}

struct Match {
    char const* pattern;
    char const* matches;   ///< texts that match, separated by blanks
    char const* different; ///< texts that don't
};

Match const matches[] = {
    {"b", "abc b", "ac"},
    {"^ab?c$", "ac abc", "abbc xac acx"},
    {"^a.c$", "abc aßc", "ac abbc"},
    {"^[a-cä]+$", "abc äa", "ad"},
    {"^[^a-c]$", "d ß", "a de"},
    {"^(ab|c)*$", "abab cab", "a abb"},
    {"^x{2,3}$", "xx xxx", "x xxxx"},
    {"^x{2,}$", "xx xxxx", "x"},
    {"^\\d{4}-\\d\\d$", "2020-01", "202-01 2020-1x"},
    {"^\\w+\\.\\S$", "a_1.z", "a.b.c"},
    {"^[\\]\\-x]+$", "]-x", "y"},
    {"^(a*)*b$", "aab b", "aac"},
    {"", "x", nullptr},
};

bool anyOf(Pattern& pattern, std::string texts, bool wanted) {
    texts += ' ';
    for (std::size_t at = 0, end = texts.find(' '); end != texts.npos;
         at = end + 1, end = texts.find(' ', at)) {
        if (pattern.matches(texts.substr(at, end - at)) == wanted) {
            return true;
        }
    }
    return false;
}

TEST(Pattern, MatchesTexts) {
    for (Match const& row : matches) {
        SCOPED_TRACE(row.pattern);
        Pattern pattern(row.pattern);
        EXPECT_FALSE(anyOf(pattern, row.matches, false));
        EXPECT_TRUE(row.different == nullptr || !anyOf(pattern, row.different, true));
    }
    for (char const* bad : {"(", ")", "[", "[b-a]", "*", "a**", "a{3,2}", "a{", "\\", "\\q", "a{1001}",
                            "((((x{999}){999}){999}))"}) {
        SCOPED_TRACE(bad);
        EXPECT_NE(Pattern::problem(bad), "");
    }
}

TEST(Pattern, TakesLinearTimeForAnyPattern) {
    Pattern pattern("(a|a)*(a|b)*(a*)*c");
    EXPECT_FALSE(pattern.matches(std::string(200'000, 'a')));
}

TEST(Numbers, ArePlainOrCodes) {
    for (char const* plain : {"0", "-7", "12.50", ".5", "-.5", "0.0", "1e-07", "1.5E8", "1e+300",
                              "999999999999999", "0.1234567890123456789"}) {
        EXPECT_TRUE(isPlainNumber(plain)) << plain;
    }
    for (char const* code :
         {"",       "-",   ".",   "5.",   "007", "-00", "00.5", "+49", "0E8",
          "1E5",    "1e",  "1e+", "0x10", "inf", "nan", " 1",   "1 ",  "1234567890123456",
          "1e+999", "1,5", "--1"}) {
        EXPECT_FALSE(isPlainNumber(code)) << code;
    }
    EXPECT_EQ(numberIn("+5"), 5);
    EXPECT_EQ(numberIn("007"), 7);
    EXPECT_FALSE(numberIn("inf") || numberIn("+-5") || numberIn("++5") || numberIn("5x") ||
                 numberIn(""));
}

TEST(Visible, LeavesNothingThatSteers) {
    EXPECT_EQ(visible("a\tb\n\x1b[1m\x7f"), "a\\tb\\n\\x1B[1m\\x7F");
    EXPECT_EQ(visible("\xC2\x9B\xE2\x80\xAE\xE2\x80\xA8\xEF\xBB\xBF"), "\\u009B\\u202E\\u2028\\uFEFF");
    EXPECT_EQ(visible("\xFF\xC0\x80\xED\xA0\x80\xE2\x82"), "\\xFF\\xC0\\x80\\xED\\xA0\\x80\\xE2\\x82");
    EXPECT_EQ(visible("東京 é 😀"), "東京 é 😀");
    EXPECT_EQ(widthOf("東京e\xCC\x81😀x"), 8U);
}

} // namespace
} // namespace qxtab
