#pragma once

/// \file
/// Texts, dates, statuses, cells and tables as arguments of std::format, and of fmt::format where
/// `<fmt/format.h>` is included before this header. Format specifications are those of texts: "{:>12}".
///
/// A cell is written as Cell::get(Str&, 0) gives it, so 4.5 is "4.5" and an empty cell is nothing; one
/// with a table, a table and a handle to one as Table::display() writes them; a Date as YYYY-MM-DD.
///
/// Not a part of `<qx/ease.h>`, since `<format>` takes long to compile.

#include "qx/ease/operators.h"

#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#if __has_include(<version>)
#include <version>
#endif
#ifdef __cpp_lib_format
#include <format>
#endif

namespace QX {
namespace Detail {

inline std::string formatted(Str const& text) {
    return toString(text);
}
inline std::string formatted(Date const& date) {
    return toString(date.getDate(""));
}
inline std::string formatted(Status const& status) {
    return toString(status.message(true));
}
inline std::string formatted(Table const& table) {
    std::ostringstream os;
    table.display(os);
    return os.str();
}
template <typename T>
auto formatted(Ptr<T> const& table) -> decltype(formatted(*table)) {
    return table.isNull() ? "Null table\n" : formatted(*table);
}
inline std::string formatted(Cell const& cell) {
    Str text;
    if (cell.get(text, 0).ok()) {
        return toString(text);
    }
    std::ostringstream os;
    cell.display(os);
    return os.str();
}

template <typename T>
struct IsFormatted : std::bool_constant<std::is_base_of_v<Str, T> || std::is_base_of_v<Table, T> ||
                                        std::is_base_of_v<Cell, T> || std::is_same_v<T, Date> ||
                                        std::is_same_v<T, Status>> {};
template <typename T>
struct IsFormatted<Ptr<T>> : std::bool_constant<std::is_base_of_v<Table, std::remove_const_t<T>>> {};

} // namespace Detail
} // namespace QX

/// @cond
#ifdef __cpp_lib_format
template <typename T>
requires QX::Detail::IsFormatted<T>::value struct std::formatter<T, char>
    : std::formatter<std::string_view, char> {
    template <typename Context>
    auto format(T const& value, Context& context) const {
        return std::formatter<std::string_view, char>::format(QX::Detail::formatted(value), context);
    }
};
#endif

#ifdef FMT_VERSION
template <typename T>
struct fmt::formatter<T, char, std::enable_if_t<QX::Detail::IsFormatted<T>::value>>
    : fmt::formatter<fmt::string_view, char> {
    template <typename Context>
    auto format(T const& value, Context& context) const {
        return fmt::formatter<fmt::string_view, char>::format(QX::Detail::formatted(value), context);
    }
};
#endif
/// @endcond
