// Values of C++ as cells and cells as values of C++.

#include "support.h"

#include <qx/ease.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>

namespace QX {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

template <typename T>
std::string read(Cell const& cell) {
    std::optional<T> const value = as<T>(cell);
    if (!value) {
        return "-";
    }
    std::ostringstream os;
    os.precision(20);
    os << +*value;
    return os.str();
}

struct Reading {
    double number;
    char const* asInt;
    char const* asByte;
    char const* asUnsigned;
    char const* asLong;
    char const* asFloat;
};

Reading const readings[] = {
    {0, "0", "0", "0", "0", "0"},
    {-0.0, "0", "0", "0", "0", "-0"},
    {127, "127", "127", "127", "127", "127"},
    {128, "128", "-", "128", "128", "128"},
    {-128, "-128", "-128", "-", "-128", "-128"},
    {-129, "-129", "-", "-", "-129", "-129"},
    {0.5, "-", "-", "-", "-", "0.5"},
    {-0.5, "-", "-", "-", "-", "-0.5"},
    {2147483647, "2147483647", "-", "2147483647", "2147483647", "2147483648"},
    {2147483648, "-", "-", "2147483648", "2147483648", "2147483648"},
    {-2147483649.0, "-", "-", "-", "-2147483649", "-2147483648"},
    {9223372036854774784.0, "-", "-", "9223372036854774784", "9223372036854774784",
     "9223372036854775808"},
    {9223372036854775808.0, "-", "-", "9223372036854775808", "-", "9223372036854775808"},
    {-9223372036854775808.0, "-", "-", "-", "-9223372036854775808", "-9223372036854775808"},
    {18446744073709551616.0, "-", "-", "-", "-", "18446744073709551616"},
    {1e39, "-", "-", "-", "-", "-"},
    {infinity, "-", "-", "-", "-", "inf"},
};

TEST(EaseAs, ChecksTheRangeOfNumbers) {
    for (Reading const& each : readings) {
        SCOPED_TRACE(each.number);
        Cell const cell(each.number);
        EXPECT_EQ(read<int>(cell), each.asInt);
        EXPECT_EQ(read<signed char>(cell), each.asByte);
        EXPECT_EQ(read<std::uint64_t>(cell), each.asUnsigned);
        EXPECT_EQ(read<std::int64_t>(cell), each.asLong);
        EXPECT_EQ(read<float>(cell), each.asFloat);
        EXPECT_EQ(as<double>(cell), each.number);
    }
    EXPECT_EQ(as<int>(Cell(nan)), std::nullopt);
    EXPECT_TRUE(std::isnan(*as<float>(Cell(nan))));
    EXPECT_EQ(as<float>(Cell(-1e39)), std::nullopt);
    EXPECT_EQ(as<float>(Cell(-infinity)), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(as<long double>(Cell(1e300)), static_cast<long double>(1e300));
    EXPECT_EQ(as<double>(undefined(3)), std::nullopt);
    EXPECT_EQ(as<double>(Cell("three")), std::nullopt);
}

TEST(EaseAs, ReadsTruthValues) {
    for (auto const& [text, expected] : {std::pair<char const*, std::optional<bool>>{"true", true},
                                         {"TRUE", true},
                                         {"False", false},
                                         {"0", false},
                                         {"-2", true},
                                         {"yes", std::nullopt},
                                         {"trUe ", std::nullopt},
                                         {"", std::nullopt},
                                         {"[Empty]", std::nullopt},
                                         {"#Err: true", std::nullopt}}) {
        EXPECT_EQ(as<bool>(Cell(text)), expected) << text;
    }
}

TEST(EaseAs, ReadsTextsDatesTablesAndErrors) {
    std::string const longText(100, 'x');
    for (std::string const& text : {std::string("pear"), longText, std::string("a\0b", 3)}) {
        Cell const cell{Str(text)};
        EXPECT_EQ(as<std::string>(cell), text);
        EXPECT_EQ(as<std::string_view>(cell), text);
        EXPECT_EQ(as<Str>(cell), Str(text));
    }
    EXPECT_EQ(as<std::string>(Cell(4.5)), "4.5");
    EXPECT_EQ(as<std::string_view>(static_cast<Cell const&>(Cell(4.5))), std::nullopt);
    EXPECT_EQ(as<std::string>(Cell("")), std::nullopt);
    EXPECT_EQ(as<Date>(Cell("2023-07-01")), Date("2023-07-01", ""));
    EXPECT_EQ(as<Date>(Cell("2023-13-01")), std::nullopt);
    EXPECT_EQ(as<Date>(Cell(1.0)), Date(1));

    Ptr<Table> const table(new Table("t"));
    EXPECT_EQ(as<Ptr<Table>>(Cell(table)), table);
    EXPECT_EQ(*as<Ptr<Table const>>(Cell(table)), table);
    EXPECT_EQ(as<std::string>(Cell(table)), std::nullopt);
    EXPECT_EQ(as<Ptr<Table>>(Cell("t")), std::nullopt);

    Cell const error("#Err: no price");
    EXPECT_EQ(outcome(*as<Status>(error)), "#Err: no price");
    EXPECT_EQ(as<std::string>(error), std::nullopt);
    EXPECT_EQ(as<Status>(Cell(1.0)), std::nullopt);
    EXPECT_EQ(as<AnalyticDouble>(Cell(2.0))->value, 2);
    EXPECT_EQ(as<Cell>(error)->isA(), Cell::ErrorCell);
    EXPECT_EQ(as<Cell>(Cell()), std::nullopt);
}

TEST(EaseAs, FallsBack) {
    EXPECT_EQ(valueOr(Cell(2.0), 7), 2);
    EXPECT_EQ(valueOr(Cell(), 7), 7);
    EXPECT_EQ(valueOr(Cell("x"), 7.5), 7.5);
    EXPECT_EQ(valueOr(Cell(), "none"), "none");
    EXPECT_EQ(valueOr(Cell("x"), std::string("none")), "x");
    Ptr<Table> const table =
        tableOf("t", {{"a", {tableOf("inner", {{"b", {3, "x"}}})}}}, {{"source/year", 2023}});
    EXPECT_EQ(valueAt(table, "a/b", 0), 3);
    EXPECT_EQ(valueAt(*table, "a/b[2]", "none"), "x");
    EXPECT_EQ(valueAt(table, "a/c", "none"), "none");
    EXPECT_EQ(valueAt<double>(table, "a/b"), 3.0);
    EXPECT_EQ(valueAt<double>(table, "a/b[9]"), std::nullopt);
    EXPECT_EQ(valueAt(table->getAttributes(), "source/year", 0), 2023);
    EXPECT_THROW((void)valueAt(Ptr<Table>(), "a", 0), Failure);
}

TEST(EaseValue, MakesCells) {
    for (auto const& [cell, expected] : {std::pair<Cell, char const*>{toCell("pear"), "pear"},
                                         {toCell(std::string("12.5")), "## 0 1076428800"},
                                         {toCell(std::string_view("pear").substr(1)), "ear"},
                                         {toCell(Str("x")), "x"},
                                         {toCell(3), "3"},
                                         {toCell(-3L), "-3"},
                                         {toCell(3U), "3"},
                                         {toCell(2.5F), "## 0 1074003968"},
                                         {toCell(true), "1"},
                                         {toCell(Date(1)), "1970-01-02"},
                                         {toCell(Date()), "[Empty]"},
                                         {toCell(std::nullopt), "[Empty]"},
                                         {toCell(std::optional<int>(4)), "4"},
                                         {toCell(std::optional<std::string>()), "[Empty]"},
                                         {toCell(number(1, false)), "[Undefined]"},
                                         {toCell(Cell("x")), "x"}}) {
        EXPECT_EQ(printed(cell), expected);
    }
    EXPECT_EQ(as<std::uint64_t>(toCell(std::uint64_t{1} << 63U)), std::uint64_t{1} << 63U);
    EXPECT_EQ(as<std::int64_t>(toCell(std::numeric_limits<std::int64_t>::min())),
              std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(toCell(Status("x", Status::Error, -1)).isA(), Cell::ErrorCell);
    Ptr<Table> const table(new Table("t"));
    EXPECT_EQ(as<Ptr<Table>>(toCell(table)), table);
}

TEST(EaseValue, LosesNoDigits) {
    EXPECT_EQ(as<std::int64_t>(toCell(9007199254740992)), 9007199254740992);
    for (auto const call :
         {+[] { (void)toCell(9007199254740993); }, +[] { (void)toCell(-9007199254740993); },
          +[] { (void)toCell(std::numeric_limits<std::uint64_t>::max()); }}) {
        EXPECT_THROW(call(), Failure);
    }
    try {
        (void)toCell(9007199254740993);
    } catch (Except const& except) {
        EXPECT_EQ(outcome(except.report()), "9007199254740993 can't be held exactly as a number");
        EXPECT_EQ(string(except.report().file()), "qx/ease");
    }
}

template <typename Call>
std::string failure(Call const& call) {
    try {
        call();
    } catch (Failure const& failure) {
        return failure.what();
    }
    return "";
}

TEST(EaseColumns, GoInAndOutOfContainers) {
    Ptr<Table> const table =
        tableOf("t", {{"a", std::vector<double>{1, 2.5}}, {"b", {"x", std::nullopt}}});
    EXPECT_EQ(valuesOf<double>(table, "a"), (std::vector<double>{1, 2.5}));
    EXPECT_EQ(valuesOf<std::string>(table, "b", "none"), (std::vector<std::string>{"x", "none"}));
    EXPECT_EQ(valuesOf<std::optional<int>>(table, "a"),
              (std::vector<std::optional<int>>{1, std::nullopt}));
    std::array<double, 2> places{};
    readInto(table, "a", places);
    EXPECT_EQ(places[1], 2.5);
    readInto(table, "a", std::span(places));
    std::vector<float> three(3);
    EXPECT_EQ(failure([&] { readInto(table, "a", three); }), "'a' has 2 values for 3 places");
    EXPECT_EQ(failure([&] { (void)valuesOf<int>(table, "a"); }),
              "'a' in row 2 holds no such value: '2.5'");
    EXPECT_EQ(failure([&] { (void)valuesOf<std::string>(table, "b"); }), "'b' in row 2 is empty");
    EXPECT_EQ(failure([&] { (void)valuesOf<int>(table, "z"); }),
              "No index 'z' in 't', did you mean 'a'?");

    setValues(*table, "a", {7});
    setValues(*table, "c", std::vector<std::string>{"p", "q", "r"});
    addIndex(*table, "d", std::array<int, 1>{4});
    EXPECT_EQ(shown(*table),
              "Table - t\nIndex 0 <a> 7 [Empty] \n      1 <b> x [Empty] \n      2 <c> p q r \n"
              "      3 <d> 4 \n");
    setValues(*table, "a", {1, 2, 3, 4});
    EXPECT_EQ(valuesOf<int>(table, "a"), (std::vector<int>{1, 2, 3, 4}));
}

TEST(EaseMake, MakesTablesOfIndicesAndOfRows) {
    Ptr<Table> const columns =
        tableOf("t", {{"a", {1, 2}}, {"b", {"x"}}, {3, {tableOf("n", {{"c", {Date(1)}}})}}});
    EXPECT_EQ(shown(*columns), "Table - 0\nIndex 0 <c> 1970-01-02 \nTable - t\nIndex 0 <a> 1 2 \n"
                               "      1 <b> x \n      2 <3> `Table 0' \n");
    Ptr<Table> const rows = tableOfRows("t", {"a", "b"}, {{1}, {2, "x"}, {}}, {{"note", "short"}});
    EXPECT_EQ(shown(*rows), "Table - t\nIndex 0 <a> 1 2 \n      1 <b> [Empty] x \n");
    Cell note;
    (void)rows->getAttribute("note", note);
    EXPECT_EQ(text(note), "short");
    EXPECT_EQ(failure([] {
                  (void)tableOfRows("t", {"a"}, {{1}, {2, 3}});
              }),
              "Row 2 has 2 values for 1 indices");
    EXPECT_EQ(tableOf("t", {})->indices(), 0U);
    EXPECT_EQ(tableOfRows("t", {"a"}, {})->items(0), 1U);
}

TEST(EaseNames, SuggestsTheNearest) {
    Ptr<Table> const table = tableOf("t", {{"price", {}}, {"moons", {}}, {"largest_moon", {}}});
    for (auto const& [name, expected] :
         {std::pair<char const*, std::string>{"prise", ", did you mean 'price'?"},
          {"Price", ", did you mean 'price'?"},
          {"pirce", ", did you mean 'price'?"},
          {"moon", ", did you mean 'moons'?"},
          {"largestmoon", ", did you mean 'largest_moon'?"},
          {"radius", ", which has 'price', 'moons', 'largest_moon'"},
          {"", ", which has 'price', 'moons', 'largest_moon'"}}) {
        EXPECT_EQ(failure([&, n = name] { (void)indexOf(table, n); }),
                  "No index '" + std::string(name) + "' in 't'" + expected);
    }
    EXPECT_EQ(findIndex(table, std::string("moons")), 1U);
    EXPECT_EQ(findIndex(table, std::string_view("moon")), Table::npos);
}

} // namespace
} // namespace QX
