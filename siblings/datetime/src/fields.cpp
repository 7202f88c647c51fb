#include "fields.h"

#include <algorithm>

namespace QX {

std::string_view takeRun(std::string_view& format) {
    std::string_view const run = format.substr(0, format.find_first_not_of(format.front()));
    format.remove_prefix(run.size());
    return run;
}

void appendDigits(std::string& out, int number, std::size_t digits) {
    std::string const text = std::to_string(number);
    out.append(digits - std::min(digits, text.size()), '0');
    out += text;
}

} // namespace QX
