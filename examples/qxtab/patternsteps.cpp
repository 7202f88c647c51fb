#include "patternsteps.h"

#include "failure.h"
#include "patternparts.h"

#include <utility>

namespace qxtab {

namespace {

using Step = Pattern::Step;
using Part = PatternPart;

std::size_t const mostSteps = 10'000;

/// Makes the program, from its end to its start: each part is given the step that follows it.
class Writer {
public:
    std::size_t write(Part const& part, std::size_t next);
    std::size_t add(Step step) {
        if (steps_.size() == mostSteps) {
            throw Misuse("the pattern is too large");
        }
        steps_.push_back(std::move(step));
        return steps_.size() - 1;
    }
    std::vector<Step> steps() && { return std::move(steps_); }
    Step& step(std::size_t k) { return steps_[k]; }

private:
    std::size_t repeat(Part const& part, std::size_t next);

    std::vector<Step> steps_;
};

std::size_t Writer::write(Part const& part, std::size_t next) {
    switch (part.kind) {
    case Part::One: {
        Step step = part.step;
        step.next = next;
        return add(std::move(step));
    }
    case Part::Sequence:
        for (std::size_t k = part.parts.size(); k-- > 0;) {
            next = write(part.parts[k], next);
        }
        return next;
    case Part::Choice: {
        std::size_t first = write(part.parts.back(), next);
        for (std::size_t k = part.parts.size() - 1; k-- > 0;) {
            std::size_t const other = write(part.parts[k], next);
            first = add({Step::Split, other, first});
        }
        return first;
    }
    case Part::Repeat:
        return repeat(part, next);
    }
    return next;
}

std::size_t Writer::repeat(Part const& part, std::size_t next) {
    Part const& inner = part.parts.front();
    if (!part.most) {
        std::size_t const loop = add({Step::Split, 0, next});
        std::size_t const body = write(inner, loop);
        steps_[loop].next = body;
        next = loop;
    } else {
        std::size_t const end = next;
        for (std::size_t k = part.least; k < *part.most; ++k) {
            std::size_t const body = write(inner, next);
            next = add({Step::Split, body, end});
        }
    }
    for (std::size_t k = 0; k < part.least; ++k) {
        next = write(inner, next);
    }
    return next;
}

} // namespace

std::vector<Pattern::Step> patternSteps(std::string_view text) {
    Part const whole = readPattern(text);
    Writer writer;
    std::size_t const start = writer.add({Step::Split, 0, 0}); // both ways lead to the first step
    std::size_t const match = writer.add({Step::Match});
    std::size_t const first = writer.write(whole, match);
    writer.step(start).next = first;
    writer.step(start).other = first;
    return std::move(writer).steps();
}

} // namespace qxtab
