#pragma once

#include "brief.h"

namespace QX {

using Operand = Ptr<Table const>;

/// Calls the operation that `call` names; the words behind the name are the flags that are true.
inline Status run(std::string const& call, Table const& t, Operand const& operand, Ptr<Table>& result) {
    std::string const name = call.substr(0, call.find(' '));
    std::string const rest = call.substr(std::min(name.size() + 1, call.size()));
    auto const has = [&](char const* flag) { return rest.find(flag) != std::string::npos; };
    if (name == "merge") {
        return t.merge(operand, result, has("by name"));
    }
    if (name == "fill") {
        return t.fill(operand, result, std::stoi(rest));
    }
    if (name == "append") {
        return t.append(operand, result, has("all"), has("distinct"));
    }
    if (name == "overlay") {
        return t.overlay(operand, result, has("matched"), has("empties"), has("items"));
    }
    if (name == "select") {
        return t.select(operand, result, has("keep"), has("distinct"), has("invert"));
    }
    if (name == "filter") {
        return t.filter(operand, result, has("keep"), has("exclude"));
    }
    if (name == "sort") {
        return t.sort(operand, result, has("up"));
    }
    if (name == "compare") {
        return t.compare(operand, result, has("folded"));
    }
    if (name == "makeTemplate") {
        return t.makeTemplate(operand, result);
    }
    if (name == "transpose") {
        return t.transpose(result);
    }
    std::size_t const under = rest.find(" under "); // operation OPERATOR under TEMPLATE
    return t.operation(operand, rest.substr(0, under), brief(rest.substr(under + 7)), result);
}

/// What a call gives: the brief form of the result, behind the message of a failure; "kept" where the
/// handle still holds what it held.
inline std::string told(std::string const& call, Table const& left, Operand const& right,
                        Ptr<Table>& result) {
    Ptr<Table> const former = result;
    std::string done;
    std::string const failure = raised([&] { done = outcome(run(call, left, right, result)); });
    std::string const message = failure.empty() ? done : "raises " + failure;
    return (message == "Ok" ? "" : message + ": ") + (!result                        ? "null"
                                                      : result.get() == former.get() ? "kept"
                                                                                     : brief(*result));
}

/// Expects of each row "left ; right ; result of the first call ; of the second ..."; "=" stands for the
/// result before it, "." for one that is of no interest.
inline void expectResults(std::vector<std::string> const& calls, char const* cases) {
    for (Row const& row : rows(cases)) {
        for (std::size_t k = 0; k < calls.size(); ++k) {
            SCOPED_TRACE(calls[k] + ": " + row.line);
            Ptr<Table> result = brief("former");
            std::string const expected = row[row[2 + k] == "=" ? 1 + k : 2 + k];
            if (expected != ".") {
                EXPECT_EQ(told(calls[k], *brief(row[0]), brief(row[1], "u"), result), expected);
            }
        }
    }
}

} // namespace QX
