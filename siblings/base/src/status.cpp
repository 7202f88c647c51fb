#include "qxbase/status.h"

#include <ostream>

namespace QX {

namespace {

bool isMarked(Str const& text) {
    return Str("#Err: ").comparePrefix(text, true, 1) == 0 ||
           Str("#Critical: ").comparePrefix(text, true, 1) == 0;
}

} // namespace

Status::Status(Str const& text, State state, int code) : text_(text), state_(state), code_(code) {
}

void Status::clear() {
    *this = Status();
}

Status& Status::operator<<(char const* text) {
    return *this << Str(text);
}

Status& Status::operator<<(Str const& text) {
    text_ += text;
    if (state_ == Ok) {
        state_ = Error;
        code_ = -1;
    }
    return *this;
}

Status& Status::operator<<(std::string const& text) {
    return *this << Str(text);
}

Status& Status::operator<<(unsigned long long number) {
    return *this << Str(std::to_string(number));
}

Str Status::message(bool marked) const {
    if (!marked || state_ == Ok || isMarked(text_)) {
        return text_;
    }
    return Str(state_ == Critical ? "#Critical: " : "#Err: ") + text_;
}

std::ostream& operator<<(std::ostream& os, Status const& status) {
    return os << status.message(true);
}

} // namespace QX
