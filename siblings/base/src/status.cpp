#include "qxbase/status.h"

#include <ostream>
#include <utility>

namespace QX {

namespace {

bool isMarked(Str const& text) {
    return Str("#Err: ").comparePrefix(text, true, 1) == 0 ||
           Str("#Critical: ").comparePrefix(text, true, 1) == 0;
}

} // namespace

Status::Status(Str const& text, State state, int code) : text_(text), state_(state), code_(code) {
}

Status::Status(Str&& text, State state, int code) noexcept
    : text_(std::move(text)), state_(state), code_(code) {
}

void Status::clear() {
    *this = Status();
}

Status& Status::operator<<(char const* text) {
    return *this << Str(text);
}

Status& Status::operator<<(Str const& text) {
    if (literal_ != nullptr) {
        text_ = literal_;
        literal_ = nullptr;
    }
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

Status& Status::operator<<(long long number) {
    return *this << Str(std::to_string(number));
}

Str Status::message(bool marked) const {
    Str text = literal_ == nullptr ? text_ : Str(literal_);
    if (!marked || state_ == Ok || isMarked(text)) {
        return text;
    }
    return Str(state_ == Critical ? "#Critical: " : "#Err: ") + text;
}

std::ostream& operator<<(std::ostream& os, Status const& status) {
    return os << status.message(true);
}

} // namespace QX
