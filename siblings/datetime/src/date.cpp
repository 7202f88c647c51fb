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

/// Takes exactly `digits` digits from the front of `text`; false when they are not there.
bool takeNumber(std::string_view& text, std::size_t digits, int& number) {
    if (text.size() < digits) {
        return false;
    }
    number = 0;
    for (char const c : text.substr(0, digits)) {
        if (c < '0' || c > '9') {
            return false;
        }
        number = number * 10 + (c - '0');
    }
    text.remove_prefix(digits);
    return true;
}

/// Takes a month name from the front of `text`; false when there is none.
bool takeMonthName(std::string_view& text, int& month) {
    auto const name = std::find(monthNames.begin(), monthNames.end(), text.substr(0, 3));
    if (name == monthNames.end()) {
        return false;
    }
    text.remove_prefix(3);
    month = static_cast<int>(name - monthNames.begin()) + 1;
    return true;
}

/// Takes from the front of `text` what a run of a format says; false when it is not there.
bool takeField(std::string_view& text, std::string_view run, int& year, int& month, int& day) {
    if (run == "yyyy") {
        return takeNumber(text, 4, year);
    }
    if (run == "mm") {
        return takeNumber(text, 2, month);
    }
    if (run == "mmm") {
        return takeMonthName(text, month);
    }
    if (run == "dd") {
        return takeNumber(text, 2, day);
    }
    bool const found = text.substr(0, run.size()) == run;
    text.remove_prefix(found ? run.size() : 0);
    return found;
}

std::optional<year_month_day> read(std::string_view text, std::string_view format) {
    int year = 0;
    int month = 1;
    int day = 1;
    while (!format.empty()) {
        if (!takeField(text, takeRun(format), year, month, day)) {
            return std::nullopt;
        }
    }
    if (!text.empty() || year < 1) {
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
