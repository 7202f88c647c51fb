#pragma once

#include "qxbase/str.h"

namespace QX {

/// The outcome of an operation, with no more than what QX calls.
class Status {
public:
    enum State { Ok, Warning, Error, Critical };

    Status() {}
    Status(Str const& text, State state, int code) : text_(text), state_(state), code_(code) {}
    virtual ~Status() {}

    void clear() { *this = Status(); }
    Status& operator<<(char const* text) { return *this << Str(text); }
    Status& operator<<(std::string const& text) { return *this << Str(text); }
    Status& operator<<(unsigned long long number) { return *this << Str(std::to_string(number)); }
    Status& operator<<(Str const& text) {
        text_ += text;
        code_ = ok() ? -1 : code_;
        state_ = ok() ? Error : state_;
        return *this;
    }

    Str message(bool marked) const { return marked && !ok() ? Str("#Err: ") + text_ : text_; }
    State state() const { return state_; }
    int code() const { return code_; }
    bool ok() const { return state_ == Ok; }

private:
    Str text_;
    State state_ = Ok;
    int code_ = 0;
};

} // namespace QX
