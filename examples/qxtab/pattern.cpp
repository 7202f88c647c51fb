#include "pattern.h"

#include "failure.h"
#include "patternsteps.h"
#include "utf8.h"

#include <algorithm>

namespace qxtab {

namespace {

bool accepts(Pattern::Step const& step, std::uint32_t character) {
    bool const found = std::any_of(step.set.begin(), step.set.end(), [&](Pattern::Range const& range) {
        return character >= range.first && character <= range.second;
    });
    return found != step.negated;
}

} // namespace

Pattern::Pattern(std::string_view text) : steps_(patternSteps(text)), seen_(steps_.size()) {
}

std::string Pattern::problem(std::string_view text) {
    try {
        patternSteps(text);
    } catch (Misuse const& e) {
        return e.what();
    }
    return "";
}

// Adds a step and those that follow it without taking a character.
void Pattern::add(std::size_t step, bool begin, bool end) {
    waiting_.push_back(step);
    while (!waiting_.empty()) {
        std::size_t const at = waiting_.back();
        waiting_.pop_back();
        if (seen_[at] == place_) {
            continue;
        }
        seen_[at] = place_;
        Step const& each = steps_[at];
        switch (each.kind) {
        case Step::Character:
            following_.push_back(at);
            break;
        case Step::Split:
            waiting_.push_back(each.other);
            waiting_.push_back(each.next);
            break;
        case Step::Begin:
        case Step::End:
            if (each.kind == Step::Begin ? begin : end) {
                waiting_.push_back(each.next);
            }
            break;
        case Step::Match:
            matched_ = true;
            break;
        }
    }
}

bool Pattern::matches(std::string_view text) {
    matched_ = false;
    following_.clear();
    std::size_t at = 0;
    ++place_;
    add(0, true, text.empty());
    while (!matched_ && at < text.size()) {
        std::uint32_t const character = nextCharacter(text, at);
        bool const end = at == text.size();
        current_.swap(following_);
        following_.clear();
        ++place_;
        for (std::size_t const step : current_) {
            if (accepts(steps_[step], character)) {
                add(steps_[step].next, false, end);
            }
        }
        add(0, false, end);
    }
    return matched_;
}

} // namespace qxtab
