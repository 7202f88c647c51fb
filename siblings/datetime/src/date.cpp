#include "qxdatetime/date.h"

#include "fields.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>

namespace QX {

namespace {

using std::chrono::year_month_day;

constexpr std::array<std::string_view, 12> monthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

constexpr int daysOf(year_month_day const& day) {
    return static_cast<int>(std::chrono::sys_days(day).time_since_epoch().count());
}

constexpr int firstDay = daysOf(std::chrono::year(1) / 1 / 1);
constexpr int lastDay = daysOf(std::chrono::year(9999) / 12 / 31);

std::string_view formatOrDefault(Str const& format) {
    return format.empty() ? std::string_view("yyyy-mm-dd")
                          : std::string_view(format.data(), format.size());
}

/// Takes exactly `digits` digits from the front of `text`; -1 when they are not there.
int takeNumber(std::string_view& text, std::size_t digits) {
    if (text.size() < digits) {
        return -1;
    }
    int number = 0;
    for (char const c : text.substr(0, digits)) {
        if (c < '0' || c > '9') {
            return -1;
        }
        number = number * 10 + (c - '0');
    }
    text.remove_prefix(digits);
    return number;
}

/// Takes a month name from the front of `text`; -1 when there is none.
int takeMonthName(std::string_view& text) {
    auto const name = std::find(monthNames.begin(), monthNames.end(), text.substr(0, 3));
    if (name == monthNames.end()) {
        return -1;
    }
    text.remove_prefix(3);
    return static_cast<int>(name - monthNames.begin()) + 1;
}

std::optional<year_month_day> read(std::string_view text, std::string_view format) {
    int year = -1;
    int month = 1;
    int day = 1;
    while (!format.empty()) {
        std::string_view const run = takeRun(format);
        if (run == "yyyy") {
            year = takeNumber(text, 4);
        } else if (run == "mm") {
            month = takeNumber(text, 2);
        } else if (run == "mmm") {
            month = takeMonthName(text);
        } else if (run == "dd") {
            day = takeNumber(text, 2);
        } else if (text.substr(0, run.size()) == run) {
            text.remove_prefix(run.size());
        } else {
            return std::nullopt;
        }
    }
    if (!text.empty() || year < 1 || month < 1 || day < 1) {
        return std::nullopt;
    }
    year_month_day const date = std::chrono::year(year) / month / day;
    return date.ok() ? std::optional(date) : std::nullopt;
}

void appendField(std::string& out, std::string_view run, year_month_day const& date) {
    unsigned const month = static_cast<unsigned>(date.month());
    if (run == "yyyy") {
        appendDigits(out, static_cast<int>(date.year()), 4);
    } else if (run == "mm") {
        appendDigits(out, static_cast<int>(month), 2);
    } else if (run == "mmm") {
        out += monthNames[month - 1];
    } else if (run == "dd") {
        appendDigits(out, static_cast<int>(static_cast<unsigned>(date.day())), 2);
    } else {
        out += run;
    }
}

} // namespace

Date::Date(Str const& text, Str const& format) {
    auto const date = read(std::string_view(text.data(), text.size()), formatOrDefault(format));
    if (date) {
        days_ = daysOf(*date);
    }
}

bool Date::isValid() const {
    return days_ >= firstDay && days_ <= lastDay;
}

Str const Date::getDate(Str const& format) const {
    std::string text;
    if (isValid()) {
        year_month_day const date{std::chrono::sys_days(std::chrono::days(days_))};
        for (std::string_view rest = formatOrDefault(format); !rest.empty();) {
            appendField(text, takeRun(rest), date);
        }
    }
    return text;
}

} // namespace QX
