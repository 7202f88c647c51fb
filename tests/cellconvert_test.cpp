#include "brief.h"

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
std::string show(AnalyticDouble const& out) {
    return string(Str::asString(out.get())) + (out.isValid() ? "" : " not valid");
}
std::string show(Str const& out) {
    return "'" + string(out) + "'";
}
std::string show(int out) {
    return string(Str::asString(out));
}
std::string show(double out) {
    return string(Str::asString(out));
}
std::string show(bool out) {
    return out ? "true" : "false";
}

/// What a conversion leaves in `out`, with its failure behind "!"; "" when the kind does not support it.
template <typename T, typename... Args>
std::string converted(char const* target, Cell const& cell, T out, Args... args) {
    std::string const before = show(out);
    std::string const done = outcome(cell.get(out, args...));
    if (done == "Cell translation to " + std::string(target) + " not supported for this type") {
        EXPECT_EQ(show(out), before) << target;
        return "";
    }
    return std::string(", ") + target + " " + show(out) + (done == "Ok" ? "" : " ! " + done);
}

std::string conversions(Cell const& cell) {
    std::string const ofFalse = converted("bool", cell, false);
    EXPECT_EQ(converted("bool", cell, true), ofFalse) << "whatever stood there";
    std::string const all =
        converted("date", cell, Date(-77)) + converted("const table", cell, Ptr<Table const>()) +
        converted("table", cell, Ptr<Table>()) +
        converted("status", cell, Status("before", Status::Ok, 7)) +
        converted("string", cell, Str("before"), 0) + ofFalse + converted("integer", cell, -77) +
        converted("AnalyticDouble", cell, number(-77)) + converted("double", cell, -77.0);
    return all.substr(std::min<std::size_t>(2, all.size()));
}

TEST(CellConversion, OfEveryKindToEveryType) {
    for (Row const& row : rows(R"(
        - ; string '', bool false
        abc ; date day -2147483648 ! String abc is not a recognised date, string 'abc', bool false
        tRUE ; date day -2147483648 ! String tRUE is not a recognised date, string 'tRUE', bool true
        1970-01-13 ; date 1970-01-13, string '1970-01-13', bool false
        {t } ; const table t, table t
        !x ; date day -2147483648 ! String  is not a recognised date, status x, string '#Err: x', bool false
        12 ; date 1970-01-13, string '12', bool true, integer 12, AnalyticDouble 12, double 12
        -0 ; date 1970-01-01, string '-0', bool false, integer 0, AnalyticDouble -0, double -0
        ?5 ; date 1970-01-06, string '5', bool true, integer 5, AnalyticDouble 5 not valid, double 5
    )")) {
        Cell cell;
        std::istringstream(row[0]) >> cell;
        EXPECT_EQ(conversions(cell), row[1]) << row.line;
    }
    EXPECT_TRUE(conversions(Cell(Status("x", Status::Ok, 0))).ends_with("string 'x', bool false"));
    EXPECT_TRUE(conversions(Cell("TRUE ")).ends_with("string 'TRUE ', bool false"));
}

TEST(CellConversion, OfNumbersThatAreNoIntOrDate) {
    std::string const noInt = " ! Integer not equivalent to number";
    std::string const noDate = " ! Not a valid date";
    for (Row const& row : rows(R"(
        2.5 ; 2 ! ; 1970-01-03
        -0.5 ; 0 ! ; 1970-01-01
        2.0000000000000004 ; 2 ; 1970-01-03   <- one step from a whole number
        2.000000000000001 ; 2 ! ; 1970-01-03
        1.9999999999999998 ; 1 ! ; 1970-01-02
        2e-16 ; 0 ; 1970-01-01
        3e-16 ; 0 ! ; 1970-01-01
        -2147483648 ; -2147483648 ; day -2147483648 !
        -2147483648.5 ; -2147483648 ! ; day -2147483648 !
        2147483647.5 ; 2147483647 ! ; day 2147483647 !
        2147483648 ; -2147483648 ! ; day -2147483648 !
        nan ; -2147483648 ! ; day -2147483648 !
        inf ; -2147483648 ; day -2147483648 !   <- counts as whole
    )")) {
        Cell cell;
        std::istringstream(row[0]) >> cell;
        auto const expected = [&](std::size_t field, std::string const& failure) {
            std::string const form = row[field];
            return form.ends_with(" !") ? form.substr(0, form.size() - 2) + failure : form;
        };
        EXPECT_EQ(converted("integer", cell, -77), ", integer " + expected(1, noInt)) << row.line;
        EXPECT_EQ(converted("date", cell, Date(-77)), ", date " + expected(2, noDate)) << row.line;
    }
}

} // namespace
} // namespace QX
