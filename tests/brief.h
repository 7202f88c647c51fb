#pragma once

#include "briefform.h"

#include <string>
#include <vector>

namespace QX {

/// One case of a test: a line of fields separated by ";", of which those left out are empty.
struct Row {
    std::string line;
    std::vector<std::string> fields{};

    std::string operator[](std::size_t k) const { return k < fields.size() ? fields[k] : ""; }
};

inline std::string trimmed(std::string const& text) {
    std::size_t const first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

/// The cases in a text of one line each; a line that begins with ";;" goes on with the one before. What
/// follows "<-" is a note.
inline std::vector<Row> rows(std::string const& text) {
    std::vector<Row> all;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line = trimmed(line.substr(0, line.find(" <-")));
        bool const goesOn = line.starts_with(";;");
        if (!goesOn && !line.empty()) {
            all.push_back({line});
        }
        std::istringstream fields(line.substr(goesOn ? 2 : 0));
        for (std::string field; std::getline(fields, field, ';');) {
            all.back().fields.push_back(trimmed(field));
        }
    }
    return all;
}

} // namespace QX
