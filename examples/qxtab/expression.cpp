#include "expression.h"

#include "function.h"
#include "token.h"

#include <utility>

namespace qxtab {

namespace {

std::size_t const deepest = 200;

struct Operator {
    char const* sign;
    Expression::Kind kind;
};
using Level = std::vector<Operator>;

Level const comparisons = {{"==", Expression::Equal},        {"=", Expression::Equal},
                           {"!=", Expression::Unequal},      {"<=", Expression::LessEqual},
                           {">=", Expression::GreaterEqual}, {"<", Expression::Less},
                           {">", Expression::Greater}};
Level const sums = {{"+", Expression::Add}, {"-", Expression::Subtract}, {"&", Expression::Join}};
Level const products = {
    {"*", Expression::Multiply}, {"/", Expression::Divide}, {"%", Expression::Remainder}};
Level const ands = {{"and", Expression::And}};
Level const ors = {{"or", Expression::Or}};

// One member function for each level of the grammar.
class Parser {
public:
    explicit Parser(std::string const& text) : tokens_(text) {}

    Expression whole() {
        Expression read = any();
        if (tokens_.next().kind != Token::End) {
            unexpected(", where an operator or the end was expected");
        }
        return read;
    }
    std::vector<Assignment> assignments();

private:
    Expression any() {
        return chain(ors, [this] { return chain(ands, [this] { return negation(); }); });
    }
    template <typename Part>
    Expression chain(Level const& level, Part const& part);
    Expression negation();
    Expression comparison();
    Expression sum() {
        return chain(sums, [this] { return chain(products, [this] { return signedValue(); }); });
    }
    Expression signedValue();
    Expression value();
    Expression call(Token const& name);
    bool skipOperator(Level const& level, Expression::Kind& kind);
    [[noreturn]] void unexpected(std::string const& instead) {
        Token const& next = tokens_.next();
        bool const end = next.kind == Token::End;
        tokens_.fail(next.at, (end ? "the end" : "'" + next.text + "'") + " was not expected" + instead);
    }
    void enter() {
        if (++depth_ > deepest) {
            tokens_.fail(tokens_.next().at, "the expression is nested too deeply");
        }
    }

    Tokens tokens_;
    std::size_t depth_ = 0;
};

bool isWord(std::string const& name) {
    return name == "and" || name == "or" || name == "not";
}

Expression combined(Expression::Kind kind, Expression&& left, Expression&& right) {
    Expression both;
    both.kind = kind;
    both.parts.push_back(std::move(left));
    both.parts.push_back(std::move(right));
    return both;
}

Expression applied(Expression::Kind kind, Expression&& operand) {
    Expression made;
    made.kind = kind;
    made.parts.push_back(std::move(operand));
    return made;
}

bool Parser::skipOperator(Level const& level, Expression::Kind& kind) {
    for (Operator const& each : level) {
        if (tokens_.skip(each.sign)) {
            kind = each.kind;
            return true;
        }
    }
    return false;
}

// Operators in a chain make a tree as deep as it is long, but for those of truth values.
template <typename Part>
Expression Parser::chain(Level const& level, Part const& part) {
    std::size_t const before = depth_;
    Expression left = part();
    Expression::Kind kind{};
    while (skipOperator(level, kind)) {
        bool const flat = kind == Expression::And || kind == Expression::Or;
        if (flat && left.kind == kind) {
            left.parts.push_back(part());
            continue;
        }
        enter();
        left = combined(kind, std::move(left), part());
    }
    depth_ = before;
    return left;
}

Expression Parser::negation() {
    if (!tokens_.skip("not")) {
        return comparison();
    }
    enter();
    Expression operand = negation();
    --depth_;
    return applied(Expression::Not, std::move(operand));
}

Expression Parser::comparison() {
    Expression left = sum();
    Expression::Kind kind{};
    if (!skipOperator(comparisons, kind)) {
        return left;
    }
    Expression both = combined(kind, std::move(left), sum());
    std::size_t const at = tokens_.next().at;
    if (skipOperator(comparisons, kind)) {
        tokens_.fail(at, "comparisons don't chain; write a < b and b < c");
    }
    return both;
}

Expression Parser::signedValue() {
    if (!tokens_.skip("-")) {
        return value();
    }
    enter();
    Expression operand = signedValue();
    --depth_;
    return applied(Expression::Negate, std::move(operand));
}

Expression Parser::value() {
    Token const& next = tokens_.next();
    bool const name = next.kind == Token::Name && !isWord(next.text);
    if (next.kind == Token::Sign ? next.text != "("
                                 : next.kind == Token::End || (next.kind == Token::Name && !name)) {
        unexpected(", where a value was");
    }
    Token const token = tokens_.take();
    if (token.kind == Token::Sign) {
        enter();
        Expression inner = any();
        --depth_;
        if (!tokens_.skip(")")) {
            unexpected(", where a ) was");
        }
        return inner;
    }
    if (token.kind == Token::Name && tokens_.isNext("(")) {
        return call(token);
    }
    Expression single;
    single.kind = token.kind == Token::Number ? Expression::Number
                  : token.kind == Token::Text ? Expression::Text
                                              : Expression::Column;
    single.text = token.text;
    single.number = token.number;
    return single;
}

Expression Parser::call(Token const& name) {
    Expression made;
    made.kind = Expression::Call;
    made.text = name.text;
    made.function = findFunction(name.text);
    if (made.function == nullptr) {
        tokens_.fail(name.at, "there is no function '" + name.text + "'" +
                                  suggestion(name.text, functionNames()));
    }
    enter();
    tokens_.take();
    while (!tokens_.isNext(")")) {
        made.parts.push_back(any());
        if (!tokens_.skip(",") && !tokens_.isNext(")")) {
            unexpected(", where a , or ) was");
        }
    }
    tokens_.take();
    --depth_;
    std::string const problem = checkCall(made);
    if (!problem.empty()) {
        tokens_.fail(name.at, problem);
    }
    return made;
}

std::vector<Assignment> Parser::assignments() {
    std::vector<Assignment> all;
    do {
        bool const name = tokens_.next().kind == Token::Name || tokens_.next().kind == Token::Column;
        if (!name || isWord(tokens_.next().text)) {
            unexpected(", where the name of a column was");
        }
        std::string const column = tokens_.take().text;
        if (!tokens_.skip("=")) {
            unexpected(", where an = was");
        }
        all.push_back({column, any()});
    } while (tokens_.skip(";") && tokens_.next().kind != Token::End);
    if (tokens_.next().kind != Token::End) {
        unexpected(", where an operator, a ; or the end was");
    }
    return all;
}

} // namespace

Expression readExpression(std::string const& text) {
    return Parser(text).whole();
}

std::vector<Assignment> readAssignments(std::string const& text) {
    return Parser(text).assignments();
}

} // namespace qxtab
