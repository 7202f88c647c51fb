#pragma once

#include "qxbase/export.h"

#include <cstddef>
#include <iosfwd>
#include <string>

namespace QX {

/// A text: a sequence of bytes, zero bytes included, in no particular encoding (UTF-8 passes through).
///
/// A value type: a copy owns its own bytes. Never depends on the process's locale.
class QXBASE_API Str {
public:
    /// Makes the empty text.
    Str() = default;
    /// Copies a zero-terminated text; a null pointer gives the empty text.
    Str(char const* text);
    /// Copies all bytes of `text`.
    Str(std::string const& text);
    /// Takes over the bytes of `text`.
    Str(std::string&& text) noexcept;
    /// Copies all bytes.
    Str(Str const&) = default;
    /// Takes over the bytes of the source, which is left valid but unspecified.
    Str(Str&&) noexcept = default;
    /// Copies all bytes.
    Str& operator=(Str const&) = default;
    /// Takes over the bytes of the source, which is left valid but unspecified.
    Str& operator=(Str&&) noexcept = default;
    virtual ~Str() = default;

    /// Makes this text the given bytes, which must not lie in it, and returns it; keeps its room.
    Str& assign(char const* bytes, std::size_t size) {
        text_.assign(bytes, size);
        return *this;
    }

    /// True when the text has no bytes.
    bool empty() const { return text_.empty(); }
    /// The number of bytes, without the terminating zero.
    std::size_t size() const { return text_.size(); }
    /// The zero-terminated bytes; valid until this text is changed or destroyed.
    char const* get() const { return text_.c_str(); }
    /// Same as get().
    char const* data() const { return text_.c_str(); }

    /// This text followed by `other`.
    Str operator+(Str const& other) const;
    /// Appends `other`, which may be this text itself.
    Str& operator+=(Str const& other);

    /// True when both texts have the same bytes.
    bool operator==(Str const& other) const { return text_ == other.text_; }
    /// Orders two texts: 0 when equal, negative when this one sorts first, positive otherwise.
    ///
    /// The order is by unsigned byte, and a text sorts before a longer one that begins with it. With
    /// `ignoreCase` the ASCII letters A to Z count as a to z.
    int compare(Str const& other, bool ignoreCase) const;
    /// 0 when `text` begins with this text; otherwise how this text orders against that beginning.
    ///
    /// A text of fewer than `least` bytes matches nothing: with 1, an empty prefix gives a value other
    /// than 0. `ignoreCase` as in compare().
    int comparePrefix(Str const& text, bool ignoreCase, std::size_t least) const;

    /// The decimal text of a whole number.
    static Str asString(int number);
    /// The text of a double: plain digits for a whole number below 1e15 in magnitude (100000, -0), nan,
    /// inf or -inf, and for every other value the shortest text that reads back to the same double.
    static Str asString(double number);

private:
    virtual void anchor() const; // keeps the virtual table in this library, the destructor being inline

    std::string text_;
};

/// Writes the text as a std::string is written: the stream's width and fill apply.
QXBASE_API std::ostream& operator<<(std::ostream& os, Str const& text);

} // namespace QX
