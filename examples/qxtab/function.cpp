#include "function.h"

#include "failure.h"
#include "numbers.h"

#include <algorithm>
#include <cmath>

namespace qxtab {

namespace {

using Values = std::vector<Value>;

std::string_view trimmed(std::string_view text) {
    std::size_t const first = text.find_first_not_of(" \t\r\n");
    std::size_t const last = text.find_last_not_of(" \t\r\n");
    return first == std::string_view::npos ? std::string_view() : text.substr(first, last - first + 1);
}

std::size_t characters(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

Value inCase(Value const& value, Evaluator& evaluator, char first, char last) {
    std::string changed(evaluator.text(value));
    for (char& c : changed) {
        c = c >= first && c <= last ? static_cast<char>(c ^ 0x20) : c;
    }
    return evaluator.keep(std::move(changed));
}

Value replaced(Values const& values, Evaluator& evaluator) {
    std::string_view const text = evaluator.text(values[0]);
    std::string_view const from = evaluator.text(values[1]);
    std::string_view const to = evaluator.text(values[2]);
    std::string changed;
    std::size_t at = 0;
    constexpr std::size_t none = std::string_view::npos;
    for (std::size_t found = from.empty() ? none : text.find(from); found != none;
         found = text.find(from, at)) {
        changed.append(text, at, found - at).append(to);
        at = found + from.size();
    }
    return evaluator.keep(std::move(changed.append(text, at)));
}

Value ofNumber(Values const& values, Evaluator& evaluator, double (*apply)(double)) {
    std::optional<double> const number = evaluator.number(values[0]);
    return number ? Value::of(apply(*number)) : Value();
}

Value rounded(Values const& values, Evaluator& evaluator) {
    double const mostDigits = 15;
    std::optional<double> const number = evaluator.number(values[0]);
    std::optional<double> const digits =
        values.size() > 1 ? evaluator.number(values[1]) : std::optional<double>(0);
    if (!number || !digits) {
        return Value();
    }
    double const scale = std::pow(10, std::clamp(std::trunc(*digits), -mostDigits, mostDigits));
    double const result = std::round(*number * scale) / scale;
    return std::isfinite(result) ? Value::of(result)
           : *number == 0        ? Value::of(0.0)
                                 : Value::of(*number);
}

// The least of the numbers, or with sign -1 the greatest; what is no number doesn't count.
Value extreme(Values const& values, Evaluator& evaluator, double sign) {
    Value best;
    for (Value const& value : values) {
        std::optional<double> const number = evaluator.number(value);
        if (number && (best.kind == Value::Empty || sign * *number < sign * best.number)) {
            best = Value::of(*number);
        }
    }
    return best;
}

std::size_t const any = 100;

} // namespace

std::vector<Function> const& functions() {
    static std::vector<Function> const all = {
        {"prefix", "(TEXT, START)", "whether the text begins with START", 2, 2,
         [](Values const& v, Evaluator& e) {
             return Value::of(e.text(v[0]).starts_with(e.text(v[1])));
         }},
        {"suffix", "(TEXT, END)", "whether the text ends with END", 2, 2,
         [](Values const& v, Evaluator& e) { return Value::of(e.text(v[0]).ends_with(e.text(v[1]))); }},
        {"contains", "(TEXT, PART)", "whether PART is in the text", 2, 2,
         [](Values const& v, Evaluator& e) {
             return Value::of(e.text(v[0]).find(e.text(v[1])) != std::string_view::npos);
         }},
        {"matches", "(TEXT, PATTERN)", "whether a regular expression matches anywhere in the text", 2, 2,
         [](Values const& v, Evaluator& e) { return Value::of(e.matches(e.text(v[0]), e.text(v[1]))); }},
        {"empty", "(VALUE)", "whether there is nothing", 1, 1,
         [](Values const& v, Evaluator&) { return Value::of(v[0].kind == Value::Empty); }},
        {"number", "(VALUE)", "whether it is a number", 1, 1,
         [](Values const& v, Evaluator&) {
             return Value::of(v[0].kind == Value::Number || numberIn(v[0].text).has_value());
         }},
        {"length", "(TEXT)", "the number of characters", 1, 1,
         [](Values const& v, Evaluator& e) {
             return Value::of(static_cast<double>(characters(e.text(v[0]))));
         }},
        {"lower", "(TEXT)", "with small ASCII letters", 1, 1,
         [](Values const& v, Evaluator& e) { return inCase(v[0], e, 'A', 'Z'); }},
        {"upper", "(TEXT)", "with capital ASCII letters", 1, 1,
         [](Values const& v, Evaluator& e) { return inCase(v[0], e, 'a', 'z'); }},
        {"trim", "(TEXT)", "without blanks at the ends", 1, 1,
         [](Values const& v, Evaluator& e) { return e.keep(std::string(trimmed(e.text(v[0])))); }},
        {"replace", "(TEXT, FROM, TO)", "with TO in place of each FROM", 3, 3, replaced},
        {"abs", "(NUMBER)", "without its sign", 1, 1,
         [](Values const& v, Evaluator& e) { return ofNumber(v, e, std::fabs); }},
        {"round", "(NUMBER[, DIGITS])", "rounded to so many digits behind the point", 1, 2, rounded},
        {"floor", "(NUMBER)", "rounded down", 1, 1,
         [](Values const& v, Evaluator& e) { return ofNumber(v, e, std::floor); }},
        {"ceil", "(NUMBER)", "rounded up", 1, 1,
         [](Values const& v, Evaluator& e) { return ofNumber(v, e, std::ceil); }},
        {"min", "(NUMBER, ...)", "the least", 1, any,
         [](Values const& v, Evaluator& e) { return extreme(v, e, 1); }},
        {"max", "(NUMBER, ...)", "the greatest", 1, any,
         [](Values const& v, Evaluator& e) { return extreme(v, e, -1); }},
        {"if", "(CONDITION, THEN, ELSE)", "one of two values", 3, 3,
         [](Values const& v, Evaluator&) { return isTrue(v[0]) ? v[1] : v[2]; }},
    };
    return all;
}

Function const* findFunction(std::string const& name) {
    auto const found = std::find_if(functions().begin(), functions().end(),
                                    [&](Function const& each) { return name == each.name; });
    return found == functions().end() ? nullptr : &*found;
}

std::vector<std::string> functionNames() {
    std::vector<std::string> names;
    for (Function const& each : functions()) {
        names.emplace_back(each.name);
    }
    return names;
}

std::string checkCall(Expression const& call) {
    Function const& function = *call.function;
    if (call.parts.size() < function.fewest || call.parts.size() > function.most) {
        return std::string(function.name) + " is called " + function.name + function.parameters;
    }
    bool const pattern = call.text == "matches" && call.parts[1].kind == Expression::Text;
    return pattern ? Pattern::problem(call.parts[1].text) : "";
}

} // namespace qxtab
