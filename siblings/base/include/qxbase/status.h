#pragma once

#include "qxbase/export.h"
#include "qxbase/str.h"

#include <iosfwd>
#include <string>
#include <type_traits>

namespace QX {

namespace Detail {

/// True for the types of characters; signed char and unsigned char are small integers.
template <typename T>
inline constexpr bool isCharType = std::is_same<T, char>::value || std::is_same<T, wchar_t>::value ||
                                   std::is_same<T, char16_t>::value || std::is_same<T, char32_t>::value;

/// True for the types of numbers, unscoped enumerations included.
template <typename T>
inline constexpr bool isNumberType = std::is_arithmetic<T>::value ||
                                     (std::is_enum<T>::value &&
                                      std::is_convertible<T, long long>::value);

} // namespace Detail

/// The outcome of an operation: a state, a message and a code. Ok until something is appended.
///
/// A call whose Status is dropped draws a warning of the compiler. Where it can't fail, as its
/// documentation says, or the failure doesn't matter, write `(void)` before the call.
class [[nodiscard]] QXBASE_API Status {
public:
    /// How bad it is.
    enum State { Ok = 0, Warning = 1, Error = 2, Critical = 3 };

    /// Makes an Ok status without a message, code 0.
    Status() = default;
    /// Makes a status of the given state, whatever the text.
    Status(Str const& text, State state, int code);
    /// The same with the text moved.
    Status(Str&& text, State state, int code) noexcept;
    /// Makes a status of a text that outlives it and all its copies, such as a string literal: no byte is
    /// copied until the message is asked for.
    static Status ofLiteral(char const* text, State state, int code) {
        Status status;
        status.literal_ = text;
        status.state_ = state;
        status.code_ = code;
        return status;
    }

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
    /// Appends the decimal text of a number as the form for a C string does.
    Status& operator<<(long long number);
    /// Appends the decimal text of an integer of any type, or of an unscoped enumerator's number, as the
    /// form for a C string does.
    ///
    /// Other numbers don't compile: append a `double` as `Str::asString(number)`, a `char` as
    /// `std::string(1, c)`, and in place of a `bool` the text that says what it means.
    template <typename Number, typename = std::enable_if_t<Detail::isNumberType<Number>>>
    Status& operator<<(Number number);

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
    char const* literal_ = nullptr; // the message, in place of text_
    Str text_;
    State state_ = Ok;
    int code_ = 0;
};

template <typename Number, typename>
Status& Status::operator<<(Number number) {
    static_assert(!std::is_floating_point<Number>::value,
                  "append a floating-point number as Str::asString(number)");
    static_assert(!std::is_same<Number, bool>::value, "append the text that says what the bool means");
    static_assert(!Detail::isCharType<Number>, "append a character as std::string(1, c)");
    if constexpr (std::is_enum<Number>::value) {
        return *this << +number;
    } else if constexpr (std::is_signed<Number>::value) {
        return *this << static_cast<long long>(number);
    } else {
        return *this << static_cast<unsigned long long>(number);
    }
}

/// Writes message(true).
QXBASE_API std::ostream& operator<<(std::ostream& os, Status const& status);

} // namespace QX
