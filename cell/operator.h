#pragma once

#include "qxbase/analyticdouble.h"
#include "qxbase/str.h"

namespace QX {

/// What can be computed of two numbers.
enum class Operator { Add, Subtract, Multiply, Divide, Remainder, Unknown };

/// The operator that a text stands for.
Operator operatorOf(Str const& text);

/// Computes with a known operator.
AnalyticDouble operate(Operator op, AnalyticDouble const& left, AnalyticDouble const& right);

} // namespace QX
