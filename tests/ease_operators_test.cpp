// The operators of texts, handles and dates. Compiled as C++17 and as C++20, whose rewritten comparisons
// must not make any of these ambiguous.

#include "support.h"

#include <qx/ease/operators.h>

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <unordered_map>

namespace QX {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

template <typename Right>
std::string comparisons(Str const& left, Right const& right) {
    std::string holds;
    holds += left == right ? "== " : "";
    holds += left != right ? "!= " : "";
    holds += left < right ? "< " : "";
    holds += left > right ? "> " : "";
    holds += left <= right ? "<= " : "";
    holds += left >= right ? ">= " : "";
    holds += right == left ? "== " : "";
    holds += right != left ? "!= " : "";
    holds += right < left ? "< " : "";
    holds += right > left ? "> " : "";
    holds += right <= left ? "<= " : "";
    holds += right >= left ? ">= " : "";
    return holds;
}

TEST(EaseText, ComparesWithTextsOfEveryType) {
    std::string const less = "!= < <= != > >= ";
    std::string const equal = "== <= >= == <= >= ";
    std::string const greater = "!= > >= != < <= ";
    for (auto const& [left, right, expected] : {std::tuple{"b"s, "c"s, less},
                                                {"b"s, "b"s, equal},
                                                {"b"s, "a\xff"s, greater},
                                                {"\xc3\xa4"s, "z"s, greater}, // bytes are unsigned
                                                {"a\0b"s, "a\0c"s, less},
                                                {""s, "a"s, less}}) {
        SCOPED_TRACE(left + " " + right);
        Str const text(left);
        EXPECT_EQ(comparisons(text, right), expected);
        EXPECT_EQ(comparisons(text, std::string_view(right)), expected);
        EXPECT_EQ(comparisons(text, Str(right)), expected);
    }
    EXPECT_EQ(comparisons(Str("b"), "c"), less);
    char const* const pointer = "b";
    EXPECT_EQ(comparisons(Str("b"), pointer), equal);
    char const* const null = nullptr;
    EXPECT_EQ(comparisons(Str(), null), equal);
}

TEST(EaseText, JoinsFromBothSides) {
    Str const text("b");
    EXPECT_EQ("a" + text, "ab");
    EXPECT_EQ(text + "c", "bc");
    EXPECT_EQ("a"s + text, "ab");
    EXPECT_EQ(text + "c"s, "bc");
    EXPECT_EQ("a"sv + text, "ab");
    EXPECT_EQ(text + "c"sv, "bc");
    EXPECT_EQ(text + text, "bb");
    EXPECT_EQ((text + "\0x"sv).size(), 3U);
}

TEST(EaseText, WorksWithAlgorithmsAndContainers) {
    Str const text("abca");
    std::string copy;
    for (char const c : text) {
        copy += c;
    }
    EXPECT_EQ(copy, "abca");
    EXPECT_EQ(std::count(begin(text), end(text), 'a'), 2);
    EXPECT_EQ(view(text), "abca");
    EXPECT_EQ(toString(Str("a\0b"s)), "a\0b"s);
    std::map<Str, int> ordered{{"b", 2}, {"a", 1}};
    EXPECT_EQ(ordered.begin()->second, 1);
    std::unordered_map<Str, int> hashed{{"b", 2}, {"a", 1}};
    EXPECT_EQ(hashed.at("a"), 1);
}

struct Derived : Table {};

TEST(EaseHandle, ComparesByObject) {
    Ptr<Table> const table(new Table("t"));
    Ptr<Table const> const same = table;
    Ptr<Table> const other(new Table("t"));
    Ptr<Table> const null;
    EXPECT_TRUE(table == same && same == table && !(table != same));
    EXPECT_TRUE(table != other && !(table == other) && table != null && null != table);
    EXPECT_TRUE(null == Ptr<Table const>());
    EXPECT_TRUE(null == nullptr && nullptr == null && table != nullptr && nullptr != table);
    EXPECT_FALSE(table == nullptr || null != nullptr);
    Ptr<Derived> const derived(new Derived);
    Ptr<Table> const base = derived;
    EXPECT_TRUE(derived == base);
    EXPECT_TRUE(*table == table); // the table's own operator stays what it is
    std::unordered_map<Ptr<Table>, int> const hashed{{table, 1}, {other, 2}};
    EXPECT_EQ(hashed.at(table), 1);
}

TEST(EaseDate, ComparesByDay) {
    std::set<Date> const days{Date(2), Date(1), Date()};
    EXPECT_FALSE(days.begin()->isValid());
    EXPECT_TRUE(Date(1) == Date("1970-01-02", "") && Date(1) != Date(2) && Date() == Date("x", ""));
    EXPECT_TRUE(Date(1) < Date(2) && Date(2) > Date(1) && Date(1) <= Date(1) && Date(1) >= Date(1));
    EXPECT_EQ(written([](std::ostream& os) { os << Date(1) << '|' << Date(); }), "1970-01-02|");
    EXPECT_EQ(std::hash<Date>()(Date(1)), std::hash<Date>()(Date("1970-01-02", "")));
}

TEST(EaseTable, IsWrittenAsDisplayed) {
    Ptr<Table> const table(new Table("t"));
    table->at("a", 1) = 2.0;
    std::string const expected = shown(*table);
    EXPECT_EQ(written([&](std::ostream& os) { os << *table; }), expected);
    EXPECT_EQ(written([&](std::ostream& os) { os << table; }), expected);
    EXPECT_EQ(written([&](std::ostream& os) { os << Ptr<Table const>(table); }), expected);
    EXPECT_EQ(written([&](std::ostream& os) { os << Ptr<Table const>(); }), "Null table\n");
}

} // namespace
} // namespace QX
