#include "support.h"

#include <ctime>
#include <limits>

namespace QX {
namespace {

int const unreadable = std::numeric_limits<int>::min();

struct DateText {
    char const* text;
    char const* format;
    int days;
};

TEST(Date, ReadsRealDaysOnly) {
    DateText const rows[] = {
        {"1970-01-01", "", 0},
        {"1969-12-31", "", -1},
        {"2000-02-29", "", 11016},
        {"0001-01-01", "", -719162},
        {"9999-12-31", "", 2932896},
        {"29:Feb:2000", "dd:mmm:yyyy", 11016},
        {"02/29/2000", "mm/dd/yyyy", 11016},
        {"2000", "yyyy", 10957},
        {"29:feb:2000", "dd:mmm:yyyy", unreadable},
        {"29 02", "dd mm", unreadable},
    };
    for (DateText const& row : rows) {
        SCOPED_TRACE(row.text);
        Date const date(row.text, row.format);
        EXPECT_EQ(date.days(), row.days);
        EXPECT_EQ(string(date.getDate(row.format)), date.isValid() ? row.text : "");
    }
    for (char const* const text :
         {"1900-02-29", "0000-01-01", "2001-04-31", "2001-00-10", "2001-13-10", "2001-1-10", "2001-01-1",
          "2001-01-100", "+001-01-10", " 2001-01-10", "2001-01-10 ", "2001/01/10", ""}) {
        EXPECT_EQ(Date(text, Str()).days(), unreadable) << text;
    }
    EXPECT_FALSE(Date().isValid());
}

TEST(Date, EveryDayReadsBack) {
    for (int days = -719162; days <= 2932896; days += 13) {
        Date const date(days);
        ASSERT_EQ(Date(date.getDate(Str()), Str()).days(), days);
        ASSERT_EQ(Date(date.getDate("yyyy.mmm.dd"), "yyyy.mmm.dd").days(), days);
    }
}

TEST(Date, IsValidWithinTheCalendar) {
    EXPECT_TRUE(Date(-719162).isValid());
    EXPECT_FALSE(Date(-719163).isValid());
    EXPECT_TRUE(Date(2932896).isValid());
    EXPECT_FALSE(Date(2932897).isValid());
    EXPECT_TRUE(Date(2932897).getDate(Str()).empty());
}

TEST(DateTime, NowIsTheLocalTime) {
    DateTime stamp;
    EXPECT_FALSE(stamp.isValid());
    EXPECT_EQ(string(stamp.getTime("hh:mm:ss")), "00:00:00");
    std::time_t const before = std::time(nullptr);
    EXPECT_TRUE(stamp.now().ok());
    std::time_t const after = std::time(nullptr);
    std::string const now = string(stamp.getDate("dd:mmm:yyyy") + " " + stamp.getTime("hh:mm:ss"));
    bool found = false;
    for (std::time_t time = before; time <= after; ++time) {
        char text[40];
        std::strftime(text, sizeof text, "%d:%b:%Y %H:%M:%S", std::localtime(&time));
        found = found || now == text;
    }
    EXPECT_TRUE(found) << now;
}

} // namespace
} // namespace QX
