#include "patternparts.h"

#include "failure.h"
#include "utf8.h"

namespace qxtab {

namespace {

using Step = Pattern::Step;
using Part = PatternPart;
using Range = Pattern::Range;

std::size_t const deepest = 100;
std::size_t const mostRepeats = 1'000;
std::uint32_t const lastCharacter = 0x7FFFFFFF;

/// Reads a pattern into parts.
class Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {}

    Part whole() {
        Part read = choice();
        if (!atEnd()) {
            fail("a ) has no (");
        }
        return read;
    }

private:
    bool atEnd() const { return at_ == text_.size(); }
    bool isNext(char c) const { return !atEnd() && text_[at_] == c; }
    bool skip(char c) {
        bool const found = isNext(c);
        at_ += found ? 1 : 0;
        return found;
    }
    [[noreturn]] void fail(std::string const& message) const {
        throw Misuse("the pattern '" + std::string(text_) + "' can't be read: " + message);
    }

    Part choice();
    Part sequence();
    Part repeated();
    Part atom();
    Part set();
    Part bounds(Part&& operand);
    Part escape();
    std::uint32_t member();
    std::size_t count();

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t depth_ = 0;
};

Part one(std::vector<Range>&& set, bool negated = false) {
    Part part;
    part.kind = Part::One;
    part.step = {Step::Character, 0, 0, std::move(set), negated};
    return part;
}

Part assertion(Step::Kind kind) {
    Part part;
    part.kind = Part::One;
    part.step.kind = kind;
    return part;
}

// What \d, \w and \s stand for; nothing for other letters.
std::vector<Range> classNamed(char letter) {
    switch (letter) {
    case 'd':
    case 'D':
        return {{'0', '9'}};
    case 'w':
    case 'W':
        return {{'0', '9'}, {'A', 'Z'}, {'_', '_'}, {'a', 'z'}, {0x80, lastCharacter}};
    case 's':
    case 'S':
        return {{'\t', '\r'}, {' ', ' '}};
    default:
        return {};
    }
}

Part Reader::choice() {
    if (++depth_ > deepest) {
        fail("it is nested too deeply");
    }
    Part all;
    all.kind = Part::Choice;
    do {
        all.parts.push_back(sequence());
    } while (skip('|'));
    --depth_;
    return all;
}

Part Reader::sequence() {
    Part all;
    while (!atEnd() && !isNext('|') && !isNext(')')) {
        all.parts.push_back(repeated());
    }
    return all;
}

Part Reader::repeated() {
    Part part = atom();
    if (isNext('*') || isNext('+') || isNext('?') || isNext('{')) {
        part = bounds(std::move(part));
    }
    if (isNext('*') || isNext('+') || isNext('?') || isNext('{')) {
        fail("a repetition follows a repetition");
    }
    return part;
}

Part Reader::bounds(Part&& operand) {
    Part part;
    part.kind = Part::Repeat;
    part.parts.push_back(std::move(operand));
    char const sign = text_[at_++];
    if (sign != '{') {
        part.least = sign == '+' ? 1 : 0;
        part.most = sign == '?' ? std::optional<std::size_t>(1) : std::nullopt;
        return part;
    }
    part.least = count();
    part.most = part.least;
    if (skip(',')) {
        part.most = isNext('}') ? std::nullopt : std::optional<std::size_t>(count());
    }
    if (!skip('}') || (part.most && *part.most < part.least)) {
        fail("a { is not followed by n}, n,} or n,m}");
    }
    return part;
}

std::size_t Reader::count() {
    std::size_t number = 0;
    std::size_t const start = at_;
    for (; !atEnd() && text_[at_] >= '0' && text_[at_] <= '9' && number <= mostRepeats; ++at_) {
        number = number * 10 + static_cast<std::size_t>(text_[at_] - '0');
    }
    if (at_ == start || number > mostRepeats) {
        fail("a { needs numbers up to " + std::to_string(mostRepeats));
    }
    return number;
}

Part Reader::atom() {
    if (skip('(')) {
        Part inner = choice();
        if (!skip(')')) {
            fail("a ( has no )");
        }
        return inner;
    }
    if (isNext('*') || isNext('+') || isNext('?') || isNext('{')) {
        fail("there is nothing to repeat");
    }
    if (skip('.')) {
        return one({{'\n', '\n'}}, true);
    }
    if (skip('^')) {
        return assertion(Step::Begin);
    }
    if (skip('$')) {
        return assertion(Step::End);
    }
    if (skip('[')) {
        return set();
    }
    if (skip('\\')) {
        return escape();
    }
    std::uint32_t const character = nextCharacter(text_, at_);
    return one({{character, character}});
}

Part Reader::escape() {
    if (atEnd()) {
        fail("a \\ stands at the end");
    }
    char const letter = text_[at_];
    std::vector<Range> set = classNamed(letter);
    if (!set.empty()) {
        ++at_;
        return one(std::move(set), letter < 'a');
    }
    std::uint32_t const character = member();
    return one({{character, character}});
}

// The character behind a backslash.
std::uint32_t Reader::member() {
    char const letter = text_[at_];
    bool const isWord =
        (letter >= '0' && letter <= '9') || ((letter | 0x20) >= 'a' && (letter | 0x20) <= 'z');
    if (isWord && letter != 'n' && letter != 't' && letter != 'r') {
        fail(std::string("\\") + letter + " means nothing here");
    }
    std::uint32_t const character = nextCharacter(text_, at_);
    return character == 'n' ? '\n' : character == 't' ? '\t' : character == 'r' ? '\r' : character;
}

Part Reader::set() {
    bool const negated = skip('^');
    std::vector<Range> ranges;
    for (bool first = true; first || !isNext(']'); first = false) {
        if (atEnd()) {
            fail("a [ has no ]");
        }
        bool const escaped = skip('\\') && !atEnd();
        std::vector<Range> const named = escaped ? classNamed(text_[at_]) : std::vector<Range>();
        if (!named.empty()) {
            if (text_[at_++] < 'a') {
                fail(R"(\D, \W and \S can't stand in [ ])");
            }
            ranges.insert(ranges.end(), named.begin(), named.end());
            continue;
        }
        std::uint32_t const from = escaped ? member() : nextCharacter(text_, at_);
        std::uint32_t to = from;
        if (isNext('-') && at_ + 1 < text_.size() && text_[at_ + 1] != ']') {
            ++at_;
            to = skip('\\') && !atEnd() ? member() : nextCharacter(text_, at_);
        }
        if (to < from) {
            fail("a range in [ ] goes backwards");
        }
        ranges.emplace_back(from, to);
    }
    ++at_;
    return one(std::move(ranges), negated);
}

} // namespace

PatternPart readPattern(std::string_view text) {
    return Reader(text).whole();
}

} // namespace qxtab
