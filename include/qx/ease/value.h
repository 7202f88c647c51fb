#pragma once

#include "qx/cell.h"
#include "qx/ease/failure.h"
#include "qx/table.h"
#include "qx/text.h"

#include <initializer_list>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace QX {

namespace Detail {

/// Types of characters are no numbers here: write a text, or convert to int.
template <typename T>
constexpr bool isCharacter = std::is_same_v<T, char> || std::is_same_v<T, wchar_t> ||
                             std::is_same_v<T, char16_t> || std::is_same_v<T, char32_t>;

template <typename T>
constexpr bool isNumber = std::is_arithmetic_v<T> && !isCharacter<T>;

/// A whole number as a double; raises where a double can't hold it exactly.
template <typename Integer>
double exactNumber(Integer value, int line = __builtin_LINE()) {
    auto digits =
        value < 0 ? 0 - static_cast<unsigned long long>(value) : static_cast<unsigned long long>(value);
    while (digits != 0 && digits % 2 == 0) {
        digits /= 2;
    }
    if (digits >> std::numeric_limits<double>::digits != 0) {
        throw Failure(std::to_string(value) + " can't be held exactly as a number", line);
    }
    return static_cast<double>(value);
}

} // namespace Detail

inline namespace Ease {

/// A value of C++ as an argument that becomes a cell.
///
/// - Texts become what Cell(Str const&) reads them as: "7" is a number, "" a text without characters.
///   textCell() makes cells that are not read.
/// - Numbers become numbers; a whole number that a double can't hold exactly (beyond 2^53) raises
///   Failure "9007199254740993 can't be held exactly as a number". Truth values become 1 and 0.
/// - A Date becomes the text YYYY-MM-DD, an empty cell when it is not valid.
/// - A handle to a table becomes a table cell that shares the table (a copy for a table const).
/// - std::nullopt and an optional without a value become empty cells, as does Value() itself.
/// - Cells, statuses and AnalyticDoubles become what Cell makes of them.
class Value {
public:
    /// An empty cell.
    Value() = default;
    /// @name What becomes a cell
    /// @{

    /// An empty cell.
    Value(std::nullopt_t) {}
    /// The same cell.
    Value(Cell const& cell) : cell_(cell) {}
    /// The same cell.
    Value(Cell&& cell) : cell_(std::move(cell)) {}
    /// A text, read.
    Value(char const* text) : Value(Str(text)) {}
    /// A text, read.
    Value(Str const& text) : cell_(text) {
        if (cell_.isA() != Cell::StringCell) {
            text_ = textCell({text.data(), text.size()});
        }
    }
    /// A text, read.
    Value(std::string const& text) : Value(Str(text)) {}
    /// A text, read.
    Value(std::string_view text) : Value(Str(std::string(text))) {}
    /// A number with its validity.
    Value(AnalyticDouble const& number) : cell_(number) {}
    /// An error.
    Value(Status const& status) : cell_(status) {}
    /// The text of a date.
    Value(Date const& date) : cell_(date.isValid() ? Cell(date.getDate("")) : Cell()) {}
    /// A number or a truth value.
    template <typename Number, std::enable_if_t<Detail::isNumber<Number>, int> = 0>
    Value(Number number) : cell_(fromNumber(number)) {}
    /// A nested table.
    template <typename T, std::enable_if_t<std::is_convertible_v<T*, Table const*>, int> = 0>
    Value(Ptr<T> const& table) : cell_(table) {}
    /// What the optional holds, or an empty cell.
    template <typename T>
    Value(std::optional<T> const& value) : cell_(value ? Value(*value).cell() : Cell()) {}

    /// @}

    /// The cell.
    Cell const& cell() const& { return cell_; }
    /// The cell, moved out.
    Cell cell() && { return std::move(cell_); }
    /// A string cell of the text that cell() was read from, where that is no text: "7" and "00501". An
    /// empty cell otherwise.
    Cell const& text() const { return text_; }

private:
    template <typename Number>
    static Cell fromNumber(Number number) {
        if constexpr (std::is_integral_v<Number> && !std::is_same_v<Number, bool>) {
            return Detail::exactNumber(number);
        } else {
            return static_cast<double>(number);
        }
    }

    Cell cell_;
    Cell text_;
};

/// The cell of a value; see Value for what becomes what.
template <typename T>
Cell toCell(T const& value) {
    return Value(value).cell();
}

/// Values as an argument: one, several in braces, or a container of them.
class Values {
public:
    /// Several in braces.
    Values(std::initializer_list<Value> values) {
        for (Value const& value : values) {
            add(value);
        }
    }
    /// One.
    template <typename T, std::enable_if_t<std::is_convertible_v<T const&, Value>, int> = 0>
    Values(T const& value) {
        add(Value(value));
    }
    /// Those of a container.
    template <typename Container,
              std::enable_if_t<!std::is_convertible_v<Container const&, Value>, int> = 0,
              typename = decltype(Value(*std::declval<Container const&>().begin()))>
    Values(Container const& values) {
        for (auto const& value : values) {
            add(Value(value));
        }
    }

    /// Their cells.
    std::vector<Cell> const& cells() const { return cells_; }
    /// Those of them that are texts which read as something else, as string cells; see Value::text().
    std::vector<Cell> const& texts() const { return texts_; }

private:
    void add(Value const& value) {
        cells_.push_back(value.cell());
        if (!value.text().empty()) {
            texts_.push_back(value.text());
        }
    }

    std::vector<Cell> cells_;
    std::vector<Cell> texts_;
};

} // namespace Ease
} // namespace QX
