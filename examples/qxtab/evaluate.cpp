#include "evaluate.h"

#include "failure.h"
#include "function.h"
#include "numbers.h"

#include <qx/text.h>

#include <algorithm>
#include <cmath>

namespace qxtab {

namespace {

int const unordered = 2; // neither before, equal nor behind

int order(double left, double right) {
    return left < right ? -1 : left > right ? 1 : left == right ? 0 : unordered;
}

// Whether what compared() found is what a comparison wants.
bool accepts(Expression::Kind comparison, int found) {
    bool const orEqual = comparison == Expression::LessEqual || comparison == Expression::GreaterEqual;
    if (comparison == Expression::Unequal) {
        return found != 0;
    }
    if (found == 0) {
        return comparison == Expression::Equal || orEqual;
    }
    bool const less = comparison == Expression::Less || comparison == Expression::LessEqual;
    bool const greater = comparison == Expression::Greater || comparison == Expression::GreaterEqual;
    return (less && found == -1) || (greater && found == 1);
}

Value computed(Expression::Kind kind, double left, double right) {
    double result = 0;
    if (kind == Expression::Add) {
        result = left + right;
    } else if (kind == Expression::Subtract) {
        result = left - right;
    } else if (kind == Expression::Multiply) {
        result = left * right;
    } else {
        result = kind == Expression::Divide ? left / right : std::fmod(left, right);
    }
    return std::isfinite(result) ? Value::of(result) : Value();
}

} // namespace

bool isTrue(Value const& value) {
    return value.kind == Value::Text ||
           ((value.kind == Value::Number || value.kind == Value::Truth) && value.number != 0);
}

Evaluator::Evaluator(Expression const& expression, Data const& data)
    : data_(data), root_(bind(expression)) {
}

Evaluator::Bound Evaluator::bind(Expression const& expression) {
    Bound bound{&expression, 0, false, {}};
    if (expression.kind == Expression::Column) {
        bound.column = columnOf(data_, expression.text);
        bound.said = data_.rules.said.contains(expression.text);
    }
    for (Expression const& part : expression.parts) {
        bound.parts.push_back(bind(part));
    }
    return bound;
}

Value Evaluator::at(std::size_t row) {
    row_ = row;
    kept_.clear();
    return value(root_);
}

bool Evaluator::holds(std::size_t row) {
    return isTrue(at(row));
}

QX::Cell Evaluator::cellAt(std::size_t row) {
    Value const result = at(row);
    if (root_.expression->kind == Expression::Column) {
        return data_.cell(root_.column, row);
    }
    switch (result.kind) {
    case Value::Empty:
        return QX::Cell();
    case Value::Number:
        return QX::Cell(result.number);
    case Value::Truth:
        return QX::textCell(result.number != 0 ? "TRUE" : "FALSE");
    case Value::Text:
        break;
    }
    return QX::textCell(result.text);
}

Value Evaluator::field(Bound const& bound) {
    QX::Cell const& cell = data_.cell(bound.column, row_);
    Value value;
    if (cell.isA() == QX::Cell::StringCell) {
        value = Value::of(QX::textIn(cell));
    } else if (cell.isA() == QX::Cell::NumericCell && !cell.empty()) {
        value = Value::of(*QX::as<double>(cell));
    } else if (!cell.empty()) {
        value = keep(textOf(cell));
    }
    value.field = true;
    value.type = data_.types[bound.column];
    value.said = bound.said;
    return value;
}

std::optional<double> Evaluator::number(Value const& value) {
    if (value.kind == Value::Number || value.kind == Value::Truth) {
        return value.number;
    }
    std::optional<double> const read = value.kind == Value::Text ? numberIn(value.text) : std::nullopt;
    if (!read && value.kind == Value::Text && value.field && misfits_++ == 0) {
        firstMisfit_ = "'" + std::string(value.text) + "' in row " + std::to_string(row_);
    }
    return read;
}

std::string_view Evaluator::text(Value const& value) {
    switch (value.kind) {
    case Value::Empty:
        return {};
    case Value::Text:
        return value.text;
    case Value::Truth:
        return value.number != 0 ? "TRUE" : "FALSE";
    case Value::Number:
        break;
    }
    return value.text.empty() ? keep(numberText(value.number)).text : value.text;
}

Value Evaluator::keep(std::string&& text) {
    kept_.push_back(std::move(text));
    return Value::of(kept_.back());
}

bool Evaluator::matches(std::string_view text, std::string_view pattern) {
    auto found = patterns_.find(pattern);
    if (found == patterns_.end()) {
        found = patterns_.emplace(std::string(pattern), Pattern(pattern)).first;
    }
    return found->second.matches(text);
}

// A number beside it makes a field a number, unless its column was said to be of text.
int Evaluator::compared(Value const& left, Value const& right) {
    if (left.kind == Value::Empty || right.kind == Value::Empty) {
        return left.kind == right.kind ? 0 : unordered;
    }
    bool const numbers = left.kind != Value::Text || right.kind != Value::Text;
    bool const columns =
        left.field && right.field && left.type == ColumnType::Number && right.type == ColumnType::Number;
    bool const texts = (left.said && left.type != ColumnType::Number) ||
                       (right.said && right.type != ColumnType::Number);
    if ((numbers && !texts) || columns) {
        std::optional<double> const a = number(left);
        std::optional<double> const b = number(right);
        return a && b ? order(*a, *b) : unordered;
    }
    int const result = text(left).compare(text(right));
    return result < 0 ? -1 : result > 0 ? 1 : 0;
}

Value Evaluator::arithmetic(Bound const& bound) {
    std::optional<double> const left = number(value(bound.parts[0]));
    std::optional<double> const right = number(value(bound.parts[1]));
    return left && right ? computed(bound.expression->kind, *left, *right) : Value();
}

Value Evaluator::call(Bound const& bound) {
    std::vector<Value> arguments;
    arguments.reserve(bound.parts.size());
    for (Bound const& part : bound.parts) {
        arguments.push_back(value(part));
    }
    return bound.expression->function->apply(arguments, *this);
}

Value Evaluator::value(Bound const& bound) {
    Expression const& expression = *bound.expression;
    auto const part = [&](std::size_t k) { return value(bound.parts[k]); };
    auto const holdsPart = [&](Bound const& each) { return isTrue(value(each)); };
    switch (expression.kind) {
    case Expression::Number:
        return {Value::Number, expression.number, expression.text};
    case Expression::Text:
        return Value::of(expression.text);
    case Expression::Column:
        return field(bound);
    case Expression::Call:
        return call(bound);
    case Expression::Negate: {
        std::optional<double> const operand = number(part(0));
        return operand ? Value::of(-*operand) : Value();
    }
    case Expression::Not:
        return Value::of(!isTrue(part(0)));
    case Expression::And:
        return Value::of(std::all_of(bound.parts.begin(), bound.parts.end(), holdsPart));
    case Expression::Or:
        return Value::of(std::any_of(bound.parts.begin(), bound.parts.end(), holdsPart));
    case Expression::Equal:
    case Expression::Unequal:
    case Expression::Less:
    case Expression::LessEqual:
    case Expression::Greater:
    case Expression::GreaterEqual:
        return Value::of(accepts(expression.kind, compared(part(0), part(1))));
    case Expression::Add:
    case Expression::Subtract:
    case Expression::Multiply:
    case Expression::Divide:
    case Expression::Remainder:
        return arithmetic(bound);
    case Expression::Join: {
        std::string joined(text(part(0)));
        joined += text(part(1));
        return keep(std::move(joined));
    }
    }
    return Value();
}

} // namespace qxtab
