#pragma once

#include "qx/export.h"
#include "qxbase/analyticdouble.h"
#include "qxbase/str.h"

namespace QX::Detail {

/// What can be computed of two numbers, by the character that stands for it.
enum class Operator : char {
    Add = '+',
    Subtract = '-',
    Multiply = '*',
    Divide = '/',
    Remainder = '%',
    Unknown = 0
};

/// The operator that a text stands for.
inline Operator operatorOf(Str const& text) {
    char const c = text.size() == 1 ? *text.data() : '\0';
    bool const known = c == '+' || c == '-' || c == '*' || c == '/' || c == '%';
    return known ? static_cast<Operator>(c) : Operator::Unknown;
}

/// The remainder of both numbers truncated to int, as Cell::operation() tells.
QX_API AnalyticDouble remainder(double left, double right);

/// Computes with a known operator; with an unknown one, a number that is not valid.
inline AnalyticDouble operate(Operator op, AnalyticDouble const& left, AnalyticDouble const& right) {
    switch (op) {
    case Operator::Add:
        return left + right;
    case Operator::Subtract:
        return left - right;
    case Operator::Multiply:
        return left * right;
    case Operator::Divide:
        return left / right;
    case Operator::Remainder:
        return remainder(left.get(), right.get());
    case Operator::Unknown:
        break;
    }
    return AnalyticDouble();
}

} // namespace QX::Detail
