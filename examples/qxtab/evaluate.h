#pragma once

#include "data.h"
#include "expression.h"
#include "pattern.h"

#include <cstddef>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qxtab {

/// What an expression comes to for one row.
struct Value {
    enum Kind { Empty, Number, Text, Truth };

    Kind kind = Empty;
    double number = 0;                  ///< of a number; 1 or 0 of a truth value
    std::string_view text;              ///< of a text or, as it was read, of a literal number
    bool field = false;                 ///< whether it comes out of a column as it is
    ColumnType type = ColumnType::Text; ///< of that column
    bool said = false;                  ///< whether that type was asked for

    static Value of(double number) { return {Number, number, {}}; }
    static Value of(bool truth) { return {Truth, truth ? 1.0 : 0.0, {}}; }
    static Value of(std::string_view text) { return {text.empty() ? Empty : Text, 0, text}; }
};

/// Computes an expression for row after row of a table.
class Evaluator {
public:
    /// Finds the columns; raises Failure for one that the table lacks. Both must outlive this.
    Evaluator(Expression const& expression, Data const& data);

    /// The value for a row; its text is valid until the next row.
    Value at(std::size_t row);
    /// Whether the value is true: neither empty, 0 nor an empty text.
    bool holds(std::size_t row);
    /// The value for a row as a cell: a field as it is in the table.
    QX::Cell cellAt(std::size_t row);

    /// How many fields were to be numbers and are not, and the column and row of the first.
    std::size_t misfits() const { return misfits_; }
    std::string firstMisfit() const { return firstMisfit_; }

    /// For functions: the number that a value is, if any, and its text.
    std::optional<double> number(Value const& value);
    std::string_view text(Value const& value);
    /// Keeps a text until the next row.
    Value keep(std::string&& text);
    bool matches(std::string_view text, std::string_view pattern);

private:
    /// A part of the expression with its column.
    struct Bound {
        Expression const* expression;
        std::size_t column = 0;
        bool said = false;
        std::vector<Bound> parts;
    };

    Bound bind(Expression const& expression);
    Value value(Bound const& bound);
    Value field(Bound const& bound);
    Value call(Bound const& bound);
    Value arithmetic(Bound const& bound);
    int compared(Value const& left, Value const& right);

    Data const& data_;
    Bound root_;
    std::size_t row_ = 0;
    std::deque<std::string> kept_;
    std::map<std::string, Pattern, std::less<>> patterns_;
    std::size_t misfits_ = 0;
    std::string firstMisfit_;
};

/// Whether a value counts as true.
bool isTrue(Value const& value);

} // namespace qxtab
