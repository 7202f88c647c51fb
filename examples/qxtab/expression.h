#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace qxtab {

struct Function;

/// A part of an expression, with what it works on below it.
struct Expression {
    enum Kind {
        Number,
        Text,
        Column,
        Call, ///< of a function
        Negate,
        Not,
        And, ///< of two parts or more
        Or,  ///< of two parts or more
        Equal,
        Unequal,
        Less,
        LessEqual,
        Greater,
        GreaterEqual,
        Add,
        Subtract,
        Multiply,
        Divide,
        Remainder,
        Join ///< of two texts
    };

    Kind kind = Number;
    std::string text;                   ///< of a text or number, or the name of a column
    double number = 0;                  ///< of a number
    Function const* function = nullptr; ///< of a call
    std::vector<Expression> parts;
};

/// A column that an expression computes.
struct Assignment {
    std::string column;
    Expression value;
};

/// Reads an expression:
///
///     or          and {"or" and}
///     and         not {"and" not}
///     not         {"not"} comparison
///     comparison  sum [("==" | "=" | "!=" | "<" | "<=" | ">" | ">=") sum]
///     sum         product {("+" | "-" | "&") product}
///     product     sign {("*" | "/" | "%") sign}
///     sign        {"-"} value
///     value       number | "text" | 'text' | column | {column} | function "(" [or {"," or}] ")" | "(" or ")"
///
/// Raises Misuse with the column of what is wrong; also for one nested more than 200 deep.
Expression readExpression(std::string const& text);

/// Reads "column = expression; column = expression". Raises Misuse.
std::vector<Assignment> readAssignments(std::string const& text);

} // namespace qxtab
