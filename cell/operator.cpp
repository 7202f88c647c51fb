#include "cell/operator.h"

#include "cell/numbertext.h"

namespace QX {

namespace {

AnalyticDouble remainder(double left, double right) {
    int const a = truncated(left);
    int const b = truncated(right);
    if (b == 0) {
        return AnalyticDouble();
    }
    return validNumber(b == -1 ? 0 : a % b); // the smallest int has no quotient by -1
}

} // namespace

Operator operatorOf(Str const& text) {
    if (text.size() != 1) {
        return Operator::Unknown;
    }
    switch (*text.data()) {
    case '+':
        return Operator::Add;
    case '-':
        return Operator::Subtract;
    case '*':
        return Operator::Multiply;
    case '/':
        return Operator::Divide;
    case '%':
        return Operator::Remainder;
    default:
        return Operator::Unknown;
    }
}

AnalyticDouble operate(Operator op, AnalyticDouble const& left, AnalyticDouble const& right) {
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

} // namespace QX
