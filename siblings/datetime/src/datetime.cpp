#include "qxdatetime/datetime.h"

#include "fields.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace QX {

namespace {

bool localTime(std::time_t time, std::tm& local) {
#if defined(_WIN32)
    return localtime_s(&local, &time) == 0;
#else
    return localtime_r(&time, &local) != nullptr;
#endif
}

} // namespace

DateTime::~DateTime() = default;

Status DateTime::now() {
    std::tm local{};
    if (!localTime(std::time(nullptr), local)) {
        return Status("Local time not available", Status::Error, -1);
    }
    auto const day = std::chrono::year(local.tm_year + 1900) / (local.tm_mon + 1) / local.tm_mday;
    Date::operator=(Date(static_cast<int>(std::chrono::sys_days(day).time_since_epoch().count())));
    int const second = std::min(local.tm_sec, 59); // a leap second would be the next day's first
    seconds_ = (local.tm_hour * 60 + local.tm_min) * 60 + second;
    return Status();
}

Str const DateTime::getTime(Str const& format) const {
    std::string text;
    std::string_view rest =
        format.empty() ? std::string_view("hh:mm:ss") : std::string_view(format.data(), format.size());
    while (!rest.empty()) {
        std::string_view const run = takeRun(rest);
        if (run == "hh") {
            appendDigits(text, seconds_ / 3600, 2);
        } else if (run == "mm") {
            appendDigits(text, seconds_ / 60 % 60, 2);
        } else if (run == "ss") {
            appendDigits(text, seconds_ % 60, 2);
        } else {
            text += run;
        }
    }
    return text;
}

} // namespace QX
