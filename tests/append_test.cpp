#include "brief.h"

#include <locale>

namespace QX {
namespace {

struct AppendCase {
    char const* upper;
    char const* lower;
    char const* matched; // addIndices false
    char const* all;     // addIndices true, null when it is the same
};

AppendCase const appendCases[] = {
    {"A 1 2 | B 3 4", "A 5 6 | C 7 8", "A 1 2 5 6 | B 3 4", "A 1 2 5 6 | B 3 4 | C - - 7 8"},
    {"A 1 | B 3 4", "A 5 | B 6 7", "A 1 - 5 - | B 3 4 6 7", nullptr},
    {"", "A 1 2 | B 3", "", "A 1 2 | B 3 -"},
    {"A", "A 1 | B", "A 1", "A 1 | B -"},
    {"A 1", "A | B", "A 1", "A 1 | B"}, // no rows, only names
    {"A 1 | B", "", "A 1 | B -", nullptr},
    {"", "", "", nullptr},
    {"A 1", "A 2 | A 3 4", "A 1 3 4", nullptr},   // the later one's rows remain
    {"A 1", "B 2 | B 3", "A 1", "A 1 | B - 3"},   // found among those added
    {"A 1 | A 2", "A 3", "A 1 3 | A 2", nullptr}, // the first of its name
    {"A 1 | | B 2", "B 3", "A 1 | - - | B 2 3", nullptr},
    // Names by text.
    {"\"\" 1", "- 2", "\"\" 1 2", nullptr},
    {"A 1", "- 2", "A 1", "A 1 | \"\" - 2"},
    {"A 1", "{n } 2", "A 1", "A 1 | \"\" - 2"}, // a table has no text
    {"A 1", "!x 2", "A 1", "A 1 | !x - 2"},
    {"0 1", "? 2", "0 1 2", nullptr},
    {"1970-01-02 1", "1 2", "1970-01-02 1 2", nullptr},
    {"a 1", "A 2", "a 1", "a 1 | A - 2"},
};

TEST(TableAppend, AddsRowsBelow) {
    for (AppendCase const& row : appendCases) {
        SCOPED_TRACE(row.upper + std::string(" append ") + row.lower);
        Ptr<Table> const upper = brief(row.upper);
        Ptr<Table> const lower = brief(row.lower, "u");
        Ptr<Table> result;
        EXPECT_EQ(outcome(upper->append(lower, result, false, false)), "Ok");
        EXPECT_EQ(named(result), std::string("u and t: ") + row.matched);
        EXPECT_EQ(outcome(upper->append(lower, result, true, false)), "Ok");
        EXPECT_EQ(named(result),
                  std::string("u and t: ") + (row.all == nullptr ? row.matched : row.all));
    }
}

TEST(TableAppend, NamesAnAddedIndexByItsText) {
    Ptr<Table> const lower = table("u", {{Cell(2), 1}});
    Ptr<Table> result;
    table("t")->append(lower, result, true, false);
    EXPECT_EQ(brief(*result), "2 1");
    EXPECT_NE(&result->get(0, 0), &lower->get(0, 0));
    EXPECT_EQ(result->get(0, 0).isA(), Cell::NumericCell);
}

/// Appends `lower` with all indices and removes repeated rows.
std::string distinct(char const* upper, char const* lower) {
    Ptr<Table> result;
    EXPECT_EQ(outcome(brief(upper)->append(brief(lower, "u"), result, true, true)), "Ok");
    return named(result);
}

TEST(TableAppend, RemovesRowsThatDisplayAlike) {
    EXPECT_EQ(distinct("A 1 2 1 | B x y x", "A 2 3 | B y y"), "u and t: A 1 2 3 | B x y y");
    EXPECT_EQ(distinct("A 1 2 | B 3", "C 4"), "u and t: A 1 2 - | B 3 - - | C - - 4");
    EXPECT_EQ(distinct("A A 1", "A A"), "u and t: A 1") << "a row like the names";
    EXPECT_EQ(distinct("A a: a | B b :b", ""), "u and t: A a: | B b");
    EXPECT_EQ(distinct("A - \"\" - ? !x !y", ""), "u and t: A - \"\" ?") << "an error displays nothing";
    EXPECT_EQ(distinct("A 1234567 1234568 12345678901234567", "A 1234567 12345678901234569"),
              "u and t: A 1234567 1234568 12345678901234568");
    EXPECT_EQ(distinct("A 0.3 0.30000000000000004 0 -0", ""), "u and t: A 0.3 0.30000000000000004 0 -0");
    EXPECT_EQ(distinct("A {n X 1 } {n X 1 } {n X 2 }", ""), "u and t: A {n X 1 } {n X 2 }");
    EXPECT_EQ(distinct("", ""), "u and t: ");
    EXPECT_EQ(distinct("A", ""), "u and t: A");
}

struct Grouping : std::numpunct<char> {
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(TableAppend, KeysRowsTheSameInEveryLocale) {
    std::locale const before = std::locale::global(std::locale(std::locale::classic(), new Grouping));
    std::string const found = distinct("A 1000 {n X 1000 }", "A 1000 {n X 1000 }");
    std::locale::global(before);
    EXPECT_EQ(found, "u and t: A 1000 {n X 1000 }");
}

} // namespace
} // namespace QX
