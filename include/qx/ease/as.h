#pragma once

#include "qx/cell.h"
#include "qx/ease/names.h"
#include "qx/ease/value.h"
#include "qx/table.h"
#include "qx/values.h"

#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace QX {

namespace Detail {

template <typename T>
constexpr bool unsupported = false;

/// A double as a number of another type; nothing when it is out of range or, for whole numbers, not
/// whole. Does without <cmath>, which takes long to compile.
template <typename T>
std::optional<T> narrowed(double number) {
    if constexpr (std::is_integral_v<T>) {
        // Both ends are powers of two, or 0, and so exact; NaN is within neither.
        constexpr auto low = static_cast<double>(std::numeric_limits<T>::min());
        constexpr T half = std::numeric_limits<T>::max() / 2 + 1;
        constexpr double end = 2 * static_cast<double>(half);
        bool const within = number >= low && number < end;
        return within && static_cast<double>(static_cast<T>(number)) == number
                   ? std::optional<T>(static_cast<T>(number))
                   : std::nullopt;
    } else if constexpr (std::numeric_limits<T>::max_exponent <
                         std::numeric_limits<double>::max_exponent) {
        constexpr auto most = static_cast<double>(std::numeric_limits<T>::max());
        constexpr double infinity = std::numeric_limits<double>::infinity();
        bool const beyond =
            (number > most && number < infinity) || (number < -most && number > -infinity);
        return beyond ? std::nullopt : std::optional<T>(static_cast<T>(number));
    } else {
        return number;
    }
}

template <typename T>
std::optional<T> narrowedNumber(Cell const& cell) {
    bool const valid = cell.isA() == Cell::NumericCell && !cell.empty();
    return valid ? narrowed<T>(numberIn(cell)) : std::nullopt;
}

inline bool equalsIgnoringCase(std::string_view text, std::string_view lower) {
    bool same = text.size() == lower.size();
    for (std::size_t k = 0; same && k < text.size(); ++k) {
        same = (text[k] | 0x20) == lower[k];
    }
    return same;
}

inline std::optional<bool> truthIn(Cell const& cell) {
    if (std::optional<double> const number = narrowedNumber<double>(cell)) {
        return *number != 0;
    }
    if (equalsIgnoringCase(textIn(cell), "true")) {
        return true;
    }
    return equalsIgnoringCase(textIn(cell), "false") ? std::optional<bool>(false) : std::nullopt;
}

/// The text of a text or a number.
template <typename T>
std::optional<T> plainText(Cell const& cell) {
    if (cell.isA() == Cell::StringCell) {
        return T(std::string(textIn(cell)));
    }
    Str text;
    if (cell.isA() == Cell::NumericCell && cell.get(text, 0).ok()) {
        return T(std::string(text.data(), text.size()));
    }
    return std::nullopt;
}

template <typename T>
constexpr bool isGotten =
    std::is_same_v<T, Date> || std::is_same_v<T, Status> || std::is_same_v<T, AnalyticDouble> ||
    std::is_same_v<T, Ptr<Table>> || std::is_same_v<T, Ptr<Table const>>;

/// What Cell::get() gives.
template <typename T>
std::optional<T> gotten(Cell const& cell) {
    T value;
    bool const found = cell.get(value).ok();
    return found ? std::optional<T>(value) : std::nullopt;
}

} // namespace Detail

inline namespace Ease {

/// The value of a cell as a T; nothing when the cell is empty (Cell::empty()) or holds no such value.
///
///     T                              has a value for
///     int, std::size_t, ...          whole numbers within the range of T
///     double, float, long double     numbers; as float, those within its range, rounded
///     bool                           numbers (true unless 0) and the texts true and false, in any case
///     std::string, Str               texts, and numbers as Cell::get(Str&, 0) writes them
///     std::string_view               texts
///     Date                           texts YYYY-MM-DD, and numbers as days since 1970-01-01
///     Ptr<Table>, Ptr<Table const>   nested tables, shared
///     Status                         errors
///     AnalyticDouble                 numbers
///     Cell                           everything but empty cells
///
/// A std::string_view is valid as long as the cell stays where it is and is not assigned to, as a cell
/// in a table does until the table grows or goes; from a temporary cell there is none.
template <typename T>
std::optional<T> as(Cell const& cell) {
    if (cell.empty()) {
        return std::nullopt;
    }
    if constexpr (std::is_same_v<T, bool>) {
        return Detail::truthIn(cell);
    } else if constexpr (Detail::isNumber<T>) {
        return Detail::narrowedNumber<T>(cell);
    } else if constexpr (std::is_same_v<T, std::string_view>) {
        return cell.isA() == Cell::StringCell ? std::optional<T>(textIn(cell)) : std::nullopt;
    } else if constexpr (std::is_same_v<T, std::string> || std::is_same_v<T, Str>) {
        return Detail::plainText<T>(cell);
    } else if constexpr (std::is_same_v<T, Cell>) {
        return cell;
    } else if constexpr (Detail::isGotten<T>) {
        return Detail::gotten<T>(cell);
    } else {
        static_assert(Detail::unsupported<T>, "no cell holds values of this type");
    }
}
template <typename T>
std::enable_if_t<std::is_same_v<T, std::string_view>, std::optional<T>> as(Cell const&& cell) = delete;

/// The value of a cell as the type of `fallback`, or `fallback` when as() finds none. A text literal
/// gives a std::string.
template <typename T>
T valueOr(Cell const& cell, T const& fallback) {
    std::optional<T> value = as<T>(cell);
    return value ? *std::move(value) : fallback;
}
/// The text of a cell, or `fallback`.
inline std::string valueOr(Cell const& cell, char const* fallback) {
    std::optional<std::string> value = as<std::string>(cell);
    return value ? *std::move(value) : std::string(fallback);
}

/// The first value at a path as a T, see Table::atXPath() and as(); nothing when the path leads nowhere.
template <typename T>
std::optional<T> valueAt(TableArgument const& table, Str const& path) {
    static_assert(!std::is_same_v<T, std::string_view>, "the text would not live long enough");
    return as<T>(table->atXPath(path, Cell()));
}

/// The first value at a path as the type of `fallback`, or `fallback` when there is none. A text literal
/// gives a std::string.
template <typename T>
auto valueAt(TableArgument const& table, Str const& path, T const& fallback) {
    return valueOr(table->atXPath(path, Cell()), fallback);
}

} // namespace Ease
} // namespace QX
