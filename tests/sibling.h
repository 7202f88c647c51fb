#pragma once

#include <gtest/gtest.h>
#include <qxbase/status.h>
#include <qxbase/str.h>

#include <sstream>
#include <string>

namespace QX {

inline std::string string(Str const& text) {
    return std::string(text.data(), text.size());
}

/// The outcome of a call: "Ok", or the message of a failure, with the state and code of one that has
/// others than Error and -1.
inline std::string outcome(Status const& status) {
    if (status.ok()) {
        return status.code() == 0 && status.message(false).empty() ? "Ok" : "Ok, but not as made";
    }
    std::string text = string(status.message(false));
    if (status.state() != Status::Error || status.code() != -1) {
        text += " (state " + std::to_string(status.state()) + ", code " + std::to_string(status.code()) +
                ")";
    }
    return text;
}

/// What `write` writes to a stream with default formatting.
template <typename Write>
std::string written(Write const& write) {
    std::ostringstream os;
    write(os);
    return os.str();
}

} // namespace QX
