#include "sibling.h"

#include <qxdatetime/datetime.h>

#include <ctime>
#include <limits>

namespace QX {
namespace {

TEST(Date, ReadsRealDaysOnly) {
    std::istringstream in(R"(
        1970-01-01 - 0   1969-12-31 - -1   2000-02-29 - 11016   0001-01-01 - -719162
        9999-12-31 - 2932896   29:Feb:2000 dd:mmm:yyyy 11016   02/29/2000 mm/dd/yyyy 11016
    )");
    int days = 0;
    for (std::string text, format; in >> text >> format >> days;) {
        Str const pattern(format == "-" ? "" : format);
        EXPECT_EQ(Date(Str(text), pattern).days(), days) << text;
        EXPECT_EQ(string(Date(days).getDate(pattern)), text);
    }
    for (char const* const text :
         {"1900-02-29", "0000-01-01", "2001-04-31", "2001-00-10", "2001-13-10", "2001-1-10",
          "2001-01-100", "+001-01-10", " 2001-01-10", "2001-01-10 ", "2001/01/10", ""}) {
        EXPECT_EQ(Date(text, Str()).days(), std::numeric_limits<int>::min()) << text;
    }
    for (char const* const text :
         {"29:FEB:2000", "29:Fe:2000", "29:Feb:200", "29:Feb:2000:", "29-Feb-2000"}) {
        EXPECT_FALSE(Date(text, "dd:mmm:yyyy").isValid()) << text;
    }
    EXPECT_FALSE(Date("2024-01 05", "yyyy-mmdd dd").isValid())
        << "a field that another one makes up for";
    EXPECT_EQ(Date("2024-01-04-05", "yyyy-mm-dd-dd").days(), Date("2024-01-05", Str()).days());
    EXPECT_FALSE(Date("2024-00-05", Str()).isValid());
    EXPECT_FALSE(Date().isValid());
    EXPECT_FALSE(Date(-719163).isValid());
    EXPECT_TRUE(Date(2932897).getDate(Str()).empty());
}

TEST(Date, EveryDayReadsBack) {
    for (int days = -719162; days <= 2932896; days += 13) {
        Date const date(days);
        ASSERT_EQ(Date(date.getDate(Str()), Str()).days(), days);
        ASSERT_EQ(Date(date.getDate("yyyy.mmm.dd"), "yyyy.mmm.dd").days(), days);
    }
}

TEST(DateTime, NowIsTheLocalTime) {
    DateTime stamp;
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
    EXPECT_EQ(string(stamp.getTime(Str())), string(stamp.getTime("hh:mm:ss")));
}

} // namespace
} // namespace QX
