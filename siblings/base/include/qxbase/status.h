#pragma once

#include "qxbase/export.h"
#include "qxbase/str.h"

#include <iosfwd>
#include <string>

namespace QX {

/// The outcome of an operation: a state, a message and a code. Ok until something is appended.
class QXBASE_API Status {
public:
    /// How bad it is.
    enum State { Ok = 0, Warning = 1, Error = 2, Critical = 3 };

    /// Makes an Ok status without a message, code 0.
    Status() = default;
    /// Makes a status of the given state, whatever the text.
    Status(Str const& text, State state, int code);

    /// Makes this an Ok status without a message, code 0.
    void clear();

    /// Appends a text to the message and returns this status.
    ///
    /// An Ok status becomes an Error with code -1, also when the text is empty; other states stay. A
    /// null pointer appends nothing but makes the status an Error all the same.
    Status& operator<<(char const* text);
    /// Appends a text as the form for a C string does.
    Status& operator<<(Str const& text);
    /// Appends a text as the form for a C string does.
    Status& operator<<(std::string const& text);
    /// Appends the decimal text of a number as the form for a C string does.
    Status& operator<<(unsigned long long number);

    /// The message. With `marked` it begins with "#Critical: " or "#Err: ", by the state, so that it
    /// reads back as an error; an Ok status and a text that begins so already (in any letter case) stay
    /// as they are.
    Str message(bool marked) const;
    /// The state.
    State state() const { return state_; }
    /// The code: 0 for a new Ok status, -1 for the failures that this family of libraries makes.
    int code() const { return code_; }
    /// True when the state is Ok.
    bool ok() const { return state_ == Ok; }

private:
    Str text_;
    State state_ = Ok;
    int code_ = 0;
};

/// Writes message(true).
QXBASE_API std::ostream& operator<<(std::ostream& os, Status const& status);

} // namespace QX
