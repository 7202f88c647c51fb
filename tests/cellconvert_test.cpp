#include "support.h"

#include <cmath>
#include <limits>

namespace QX {
namespace {

std::string show(Date const& out) {
    return out.isValid() ? string(out.getDate(Str())) : "day " + std::to_string(out.days());
}
std::string show(Ptr<Table const> const& out) {
    return out ? string(out->name()) : "null";
}
std::string show(Status const& out) {
    return outcome(out);
}
std::string show(bool out) {
    return out ? "true" : "false";
}
std::string show(int out) {
    return std::to_string(out);
}
std::string show(AnalyticDouble const& out) {
    return string(Str::asString(out.get())) + (out.isValid() ? "" : " not valid");
}
std::string show(double out) {
    return string(Str::asString(out));
}
std::string show(Str const& out) {
    return "'" + string(out) + "'";
}

/// What a conversion leaves in `out`, "-" for untouched, and its failure behind "!".
template <typename T, typename... Args>
std::string converted(Cell const& cell, T out, Args... args) {
    std::string const before = show(out);
    Status const status = cell.get(out, args...);
    std::string const left = show(out) == before ? "-" : show(out);
    return left + (status.ok() ? "" : " ! " + outcome(status));
}

/// One cell and what each conversion makes of it; an empty expectation is the failure of a kind that
/// does not support the conversion.
struct Conversions {
    char const* name;
    Cell cell;
    std::string date{};
    std::string constTable{};
    std::string table{};
    std::string status{};
    std::string string{};
    std::string boolean{};
    std::string integer{};
    std::string analytic{};
    std::string real{};
};

std::string expected(std::string const& expectation, char const* target) {
    std::string const unsupported =
        "- ! Cell translation to " + std::string(target) + " not supported for this type";
    return expectation.empty() ? unsupported : expectation;
}

void expectConversions(Conversions const& row) {
    SCOPED_TRACE(row.name);
    AnalyticDouble analytic;
    analytic.value = -77;
    EXPECT_EQ(converted(row.cell, Date(-77)), expected(row.date, "date"));
    EXPECT_EQ(converted(row.cell, Ptr<Table const>()), expected(row.constTable, "const table"));
    EXPECT_EQ(converted(row.cell, Ptr<Table>()), expected(row.table, "table"));
    EXPECT_EQ(converted(row.cell, Status("before", Status::Warning, 7)), expected(row.status, "status"));
    EXPECT_EQ(converted(row.cell, Str("before"), 0), expected(row.string, "string"));
    EXPECT_EQ(converted(row.cell, -77), expected(row.integer, "integer"));
    EXPECT_EQ(converted(row.cell, analytic), expected(row.analytic, "AnalyticDouble"));
    EXPECT_EQ(converted(row.cell, -77.0), expected(row.real, "double"));
    // A bool has no third value to start from, so both are tried.
    bool const unsupported = row.boolean.empty();
    for (bool const before : {false, true}) {
        bool out = before;
        std::string const outcomeOfBool = outcome(row.cell.get(out));
        EXPECT_EQ(outcomeOfBool,
                  unsupported ? "Cell translation to bool not supported for this type" : "Ok");
        EXPECT_EQ(show(out), unsupported ? show(before) : row.boolean);
    }
}

Conversions numeric(Cell const& cell, char const* text, std::string const& date,
                    std::string const& integer) {
    bool const zero = std::string(text) == "0" || std::string(text) == "-0";
    return {.name = text,
            .cell = cell,
            .date = date,
            .string = show(Str(text)),
            .boolean = zero ? "false" : "true",
            .integer = integer,
            .analytic = std::string(text) + (cell.empty() ? " not valid" : ""),
            .real = text};
}

Conversions words(char const* name, char const* text, char const* boolean) {
    std::string const date =
        std::string("day -2147483648 ! String ") + text + " is not a recognised date";
    return {
        .name = name, .cell = Cell(text), .date = date, .string = show(Str(text)), .boolean = boolean};
}

TEST(CellConversion, OfEveryKindToEveryType) {
    std::string const noInt = " ! Integer not equivalent to number";
    std::string const lowest = "day -2147483648 ! Not a valid date";
    std::string const greatest = "day 2147483647 ! Not a valid date";
    std::string const noText = "day -2147483648 ! String  is not a recognised date";
    double const aboveTwo = std::nextafter(2.0, 3.0);
    Conversions const rows[] = {
        {.name = "empty", .cell = Cell(), .string = "''", .boolean = "false"},
        words("words", "abc", "false"),
        words("nearly a number", "5 ", "false"),
        words("truth", "tRUE", "true"),
        words("nearly truth", "TRUE ", "false"),
        {.name = "date",
         .cell = Cell("1970-01-13"),
         .date = "1970-01-13",
         .string = "'1970-01-13'",
         .boolean = "false"},
        {.name = "table", .cell = Cell(table("t")), .constTable = "t", .table = "t"},
        {.name = "error",
         .cell = Cell(Status("x", Status::Critical, 5)),
         .date = noText,
         .status = "x",
         .string = "'#Critical: x'",
         .boolean = "false"},
        {.name = "Ok status",
         .cell = Cell(Status("x", Status::Ok, 0)),
         .date = noText,
         .status = "x",
         .string = "'x'",
         .boolean = "false"},
        numeric(Cell(12), "12", "1970-01-13", "12"),
        numeric(Cell(2.5), "2.5", "1970-01-03", "2" + noInt),
        numeric(Cell(-0.5), "-0.5", "1970-01-01", "0" + noInt),
        numeric(Cell(aboveTwo), "2.0000000000000004", "1970-01-03", "2"),
        numeric(Cell(std::nextafter(aboveTwo, 3)), "2.000000000000001", "1970-01-03", "2" + noInt),
        numeric(Cell(std::nextafter(2.0, 1.0)), "1.9999999999999998", "1970-01-02", "1" + noInt),
        numeric(Cell(2e-16), "2e-16", "1970-01-01", "0"),
        numeric(Cell(3e-16), "3e-16", "1970-01-01", "0" + noInt),
        numeric(Cell(-0.0), "-0", "1970-01-01", "0"),
        numeric(Cell(-2147483648.0), "-2147483648", lowest, "-2147483648"),
        numeric(Cell(-2147483648.5), "-2147483648.5", lowest, "-2147483648" + noInt),
        numeric(Cell(2147483647.5), "2147483647.5", greatest, "2147483647" + noInt),
        numeric(Cell(2147483648.0), "2147483648", lowest, "-2147483648" + noInt),
        numeric(Cell(3e9), "3000000000", lowest, "-2147483648" + noInt),
        numeric(Cell(NAN), "nan", lowest, "-2147483648" + noInt),
        numeric(Cell(INFINITY), "inf", lowest, "-2147483648"),
        numeric(undefined(5), "5", "1970-01-06", "5"),
        numeric(undefined(), "0", "1970-01-01", "0"),
    };
    for (Conversions const& row : rows) {
        expectConversions(row);
    }
}

} // namespace
} // namespace QX
