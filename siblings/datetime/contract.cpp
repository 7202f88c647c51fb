// What QX asks of the date-time library that it is built on: its members, held against when this is compiled,
// and what they do, when it is run. Says what is missing and exits with 1.

#include "qxbase/status.h"
#include "qxbase/str.h"
#include "qxdatetime/date.h"
#include "qxdatetime/datetime.h"

#include <concepts>
#include <iostream>
#include <set>
#include <string>

using QX::Date;
using QX::DateTime;
using QX::Status;
using QX::Str;

namespace {

template <typename D>
concept TellsDate = requires(D const& d, Str const& format) {
    { d.isValid() } -> std::convertible_to<bool>;
    { d.days() } -> std::convertible_to<int>;
    { d.getDate(format) } -> std::convertible_to<Str>;
};
template <typename D>
concept TellsTime = requires(D d, Str const& format) {
    { d.now() } -> std::convertible_to<Status>;
    { d.getTime(format) } -> std::convertible_to<Str>;
};

static_assert(std::default_initializable<Date> && std::copyable<Date> &&
                  std::constructible_from<Date, int> &&
                  std::constructible_from<Date, Str const&, Str const&>,
              "Date needs Date(), Date(int), Date(Str const&, Str const&), a copy and an assignment");
static_assert(TellsDate<Date>, "Date needs isValid(), int days() and getDate(Str const&), const");
static_assert(std::derived_from<DateTime, Date> && std::default_initializable<DateTime>,
              "DateTime must derive from Date and have a constructor without arguments");
static_assert(TellsTime<DateTime>, "DateTime needs Status now() and getTime(Str const&)");

std::set<std::string> broken;

void require(bool holds, char const* rule) {
    if (!holds && broken.insert(rule).second) {
        std::cout << rule << '\n';
    }
}

} // namespace

int main() {
    for (int const days : {-1, 0, 1, 20000}) {
        require(Date(days).days() == days, "Date(int) must keep the integer, which days() gives");
    }
    require(Date(20000).isValid() && !Date(2147483647).isValid(),
            "Date(int) must be valid for the days of a calendar only");
    Date const day(20000);
    Date const read(day.getDate(Str()), Str());
    require(read.isValid() && read.days() == day.days(), "a Date must read back from its text");
    require(!Date(Str("no date"), Str()).isValid(), "a Date that cannot be read must not be valid");
    DateTime now;
    require(now.now().ok() && now.isValid(), "DateTime::now() must set a valid date");
    require(now.getDate("dd:mmm:yyyy").size() == 11, "Date::getDate must know dd:mmm:yyyy");
    require(now.getTime("hh:mm:ss").size() == 8, "DateTime::getTime must know hh:mm:ss");
    return broken.empty() ? 0 : 1;
}
