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

Conversions number(char const* name, Cell const& cell, std::string const& date, std::string const& text,
                   std::string const& boolean, std::string const& integer) {
    bool const valid = !cell.empty();
    return {.name = name,
            .cell = cell,
            .date = date,
            .string = show(Str(text)),
            .boolean = boolean,
            .integer = integer,
            .analytic = text + (valid ? "" : " not valid"),
            .real = text};
}

Conversions words(char const* name, char const* text, char const* boolean) {
    std::string const date =
        std::string("day -2147483648 ! String ") + text + " is not a recognised date";
    return {
        .name = name, .cell = Cell(text), .date = date, .string = show(Str(text)), .boolean = boolean};
}

TEST(CellConversion, OfEveryKindToEveryType) {
    std::string const noDate = " ! Not a valid date";
    std::string const noInt = " ! Integer not equivalent to number";
    std::string const lowest = "-2147483648";
    double const aboveTwo = std::nextafter(2.0, 3.0);
    Conversions const rows[] = {
        {.name = "empty", .cell = Cell(), .string = "''", .boolean = "false"},
        words("words", "abc", "false"),
        words("nearly a number", "5 ", "false"),
        words("truth", "TRUE", "true"),
        words("truth in lower case", "true", "true"),
        words("nearly truth", "TRUE ", "false"),
        {.name = "date",
         .cell = Cell("1970-01-13"),
         .date = "1970-01-13",
         .string = "'1970-01-13'",
         .boolean = "false"},
        {.name = "table", .cell = Cell(table("t")), .constTable = "t", .table = "t"},
        {.name = "error",
         .cell = Cell(Status("x", Status::Critical, 5)),
         .date = "day " + lowest + " ! String  is not a recognised date",
         .status = "x",
         .string = "'#Critical: x'",
         .boolean = "false"},
        {.name = "Ok status",
         .cell = Cell(Status("x", Status::Ok, 0)),
         .date = "day " + lowest + " ! String  is not a recognised date",
         .status = "x",
         .string = "'x'",
         .boolean = "false"},
        number("whole", Cell(12), "1970-01-13", "12", "true", "12"),
        number("fraction", Cell(2.5), "1970-01-03", "2.5", "true", "2" + noInt),
        number("negative fraction", Cell(-0.5), "1970-01-01", "-0.5", "true", "0" + noInt),
        number("one step above", Cell(aboveTwo), "1970-01-03", "2.0000000000000004", "true", "2"),
        number("two steps above", Cell(std::nextafter(aboveTwo, 3)), "1970-01-03", "2.000000000000001",
               "true", "2" + noInt),
        number("one step below", Cell(std::nextafter(2.0, 1.0)), "1970-01-02", "1.9999999999999998",
               "true", "1" + noInt),
        number("within epsilon of zero", Cell(2e-16), "1970-01-01", "2e-16", "true", "0"),
        number("beyond epsilon of zero", Cell(3e-16), "1970-01-01", "3e-16", "true", "0" + noInt),
        number("zero", Cell(0), "1970-01-01", "0", "false", "0"),
        number("negative zero", Cell(-0.0), "1970-01-01", "-0", "false", "0"),
        number("greatest int", Cell(2147483647), "day 2147483647" + noDate, "2147483647", "true",
               "2147483647"),
        number("least int", Cell(-2147483648.0), "day " + lowest + noDate, lowest, "true", lowest),
        number("just inside below", Cell(-2147483648.5), "day " + lowest + noDate, "-2147483648.5",
               "true", lowest + noInt),
        number("just inside above", Cell(2147483647.5), "day 2147483647" + noDate, "2147483647.5",
               "true", "2147483647" + noInt),
        number("beyond above", Cell(2147483648.0), "day " + lowest + noDate, "2147483648", "true",
               lowest + noInt),
        number("beyond below", Cell(-2147483649.0), "day " + lowest + noDate, "-2147483649", "true",
               lowest + noInt),
        number("beyond by far", Cell(3e9), "day " + lowest + noDate, "3000000000", "true",
               lowest + noInt),
        number("NaN", Cell(NAN), "day " + lowest + noDate, "nan", "true", lowest + noInt),
        number("infinity", Cell(INFINITY), "day " + lowest + noDate, "inf", "true", lowest),
        number("-infinity", Cell(-INFINITY), "day " + lowest + noDate, "-inf", "true", lowest),
        number("undefined", undefined(5), "1970-01-06", "5", "true", "5"),
        number("undefined zero", undefined(), "1970-01-01", "0", "false", "0"),
        number("last day", Cell(2932896), "9999-12-31", "2932896", "true", "2932896"),
        number("after the last day", Cell(2932897), "day 2932897" + noDate, "2932897", "true",
               "2932897"),
    };
    for (Conversions const& row : rows) {
        expectConversions(row);
    }
}

} // namespace
} // namespace QX
