#pragma once

#include "qx/cell.h"
#include "qx/ptr.h"
#include "qx/table.h"
#include "qxbase/str.h"
#include "qxdatetime/date.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <type_traits>

/// \file
/// The operators that one expects of texts, handles and dates, and std::hash of them.
///
/// All are free functions that are found by their arguments; none changes what an expression means that
/// compiles without them.

namespace QX {

namespace Detail {

template <typename T>
constexpr bool isPlainText = std::is_same_v<T, std::string> || std::is_same_v<T, std::string_view> ||
                             std::is_convertible_v<T, char const*>;

/// For operators of a Str and a text of another type, in either order.
template <typename Left, typename Right>
using EnableTexts = std::enable_if_t<(std::is_same_v<Left, Str> && isPlainText<std::decay_t<Right>>) ||
                                     (isPlainText<std::decay_t<Left>> && std::is_same_v<Right, Str>)>;

inline std::string_view viewOfText(Str const& text) {
    return {text.data(), text.size()};
}
inline std::string_view viewOfText(std::string_view text) {
    return text;
}
inline std::string_view viewOfText(std::string const& text) {
    return text;
}
inline std::string_view viewOfText(char const* text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
}

inline Str joinTexts(std::string_view left, std::string_view right) {
    std::string joined;
    joined.reserve(left.size() + right.size());
    joined.append(left).append(right);
    return Str(joined);
}

} // namespace Detail

inline namespace Ease {

/// The bytes of a text, in place; valid until the text is changed or destroyed.
inline std::string_view view(Str const& text) {
    return {text.data(), text.size()};
}
std::string_view view(Str const&& text) = delete;

/// A copy of a text as a std::string, zero bytes included.
inline std::string toString(Str const& text) {
    return std::string(view(text));
}

/// The first byte of a text, so that `for (char c : text)` works.
inline char const* begin(Str const& text) {
    return text.data();
}
/// Behind the last byte of a text.
inline char const* end(Str const& text) {
    return text.data() + text.size();
}

/// @name Order and equality of texts
///
/// By unsigned byte, as Str::compare() without regard to case orders them. The other side may be a
/// std::string, a std::string_view or a zero-terminated text, without a copy.
///
/// @{

/// True unless both have the same bytes.
/// True unless both have the same bytes.
inline bool operator!=(Str const& left, Str const& right) {
    return view(left) != view(right);
}
/// True when the left one sorts first.
inline bool operator<(Str const& left, Str const& right) {
    return view(left) < view(right);
}
/// True when the right one sorts first.
inline bool operator>(Str const& left, Str const& right) {
    return view(left) > view(right);
}
/// True unless the right one sorts first.
inline bool operator<=(Str const& left, Str const& right) {
    return view(left) <= view(right);
}
/// True unless the left one sorts first.
inline bool operator>=(Str const& left, Str const& right) {
    return view(left) >= view(right);
}
/// True when both have the same bytes.
template <typename Left, typename Right, typename = Detail::EnableTexts<Left, Right>>
bool operator==(Left const& left, Right const& right) {
    return Detail::viewOfText(left) == Detail::viewOfText(right);
}
/// True unless both have the same bytes.
template <typename Left, typename Right, typename = Detail::EnableTexts<Left, Right>>
bool operator!=(Left const& left, Right const& right) {
    return Detail::viewOfText(left) != Detail::viewOfText(right);
}
/// True when the left one sorts first.
template <typename Left, typename Right, typename = Detail::EnableTexts<Left, Right>>
bool operator<(Left const& left, Right const& right) {
    return Detail::viewOfText(left) < Detail::viewOfText(right);
}
/// True when the right one sorts first.
template <typename Left, typename Right, typename = Detail::EnableTexts<Left, Right>>
bool operator>(Left const& left, Right const& right) {
    return Detail::viewOfText(left) > Detail::viewOfText(right);
}
/// True unless the right one sorts first.
template <typename Left, typename Right, typename = Detail::EnableTexts<Left, Right>>
bool operator<=(Left const& left, Right const& right) {
    return Detail::viewOfText(left) <= Detail::viewOfText(right);
}
/// True unless the left one sorts first.
template <typename Left, typename Right, typename = Detail::EnableTexts<Left, Right>>
bool operator>=(Left const& left, Right const& right) {
    return Detail::viewOfText(left) >= Detail::viewOfText(right);
}
/// @}

/// A text before or behind a Str; makes a new Str.
template <typename Left, typename Right, typename = Detail::EnableTexts<Left, Right>>
Str operator+(Left const& left, Right const& right) {
    return Detail::joinTexts(Detail::viewOfText(left), Detail::viewOfText(right));
}

/// True when both handles refer to one object, or both are null.
template <typename T, typename U>
bool operator==(Ptr<T> const& left, Ptr<U> const& right) noexcept {
    return left.isNull() ? right.isNull() : !right.isNull() && left.get() == right.get();
}
/// False when both handles refer to one object, or both are null.
template <typename T, typename U>
bool operator!=(Ptr<T> const& left, Ptr<U> const& right) noexcept {
    return !(left == right);
}
/// True for a null handle.
template <typename T>
bool operator==(Ptr<T> const& handle, std::nullptr_t) noexcept {
    return handle.isNull();
}
/// True for a null handle.
template <typename T>
bool operator==(std::nullptr_t, Ptr<T> const& handle) noexcept {
    return handle.isNull();
}
/// False for a null handle.
template <typename T>
bool operator!=(Ptr<T> const& handle, std::nullptr_t) noexcept {
    return !handle.isNull();
}
/// False for a null handle.
template <typename T>
bool operator!=(std::nullptr_t, Ptr<T> const& handle) noexcept {
    return !handle.isNull();
}

/// @name Order and equality of dates
///
/// By their days. Dates that could not be read are equal, and before all others.
///
/// @{

/// True for the same day.
/// True for the same day.
inline bool operator==(Date const& left, Date const& right) {
    return left.days() == right.days();
}
/// True for different days.
inline bool operator!=(Date const& left, Date const& right) {
    return left.days() != right.days();
}
/// True when the left one is earlier.
inline bool operator<(Date const& left, Date const& right) {
    return left.days() < right.days();
}
/// True when the right one is earlier.
inline bool operator>(Date const& left, Date const& right) {
    return left.days() > right.days();
}
/// True unless the right one is earlier.
inline bool operator<=(Date const& left, Date const& right) {
    return left.days() <= right.days();
}
/// True unless the left one is earlier.
inline bool operator>=(Date const& left, Date const& right) {
    return left.days() >= right.days();
}
/// @}

/// Writes a date as YYYY-MM-DD; nothing when it is not valid.
inline std::ostream& operator<<(std::ostream& os, Date const& date) {
    return os << date.getDate("");
}

/// Writes a table as Table::display() does.
inline std::ostream& operator<<(std::ostream& os, Table const& table) {
    return table.display(os);
}

/// Writes the table of a handle as Table::display() does; "Null table" and a newline for a null handle.
template <typename T>
std::enable_if_t<std::is_convertible_v<T*, Table const*>, std::ostream&>
operator<<(std::ostream& os, Ptr<T> const& table) {
    return table.isNull() ? os << Str("Null table\n") : table->display(os);
}

} // namespace Ease
} // namespace QX

/// @cond
namespace std {

/// Hashes a text by its bytes.
template <>
struct hash<QX::Str> {
    std::size_t operator()(QX::Str const& text) const noexcept {
        return std::hash<std::string_view>()(std::string_view(text.data(), text.size()));
    }
};

/// Hashes a date by its days.
template <>
struct hash<QX::Date> {
    std::size_t operator()(QX::Date const& date) const noexcept { return std::hash<int>()(date.days()); }
};

/// Hashes a handle by its object.
template <typename T>
struct hash<QX::Ptr<T>> {
    std::size_t operator()(QX::Ptr<T> const& handle) const noexcept {
        return std::hash<T*>()(handle.isNull() ? nullptr : handle.get());
    }
};

} // namespace std
/// @endcond
