#include "table/paths/pathstep.h"

#include <algorithm>
#include <charconv>

namespace QX {

namespace {

/// Reads an item number from the front of `text` as stream extraction reads an unsigned number in the
/// classic locale, whatever follows it; false when there is none or it is out of range.
bool readItem(std::string_view text, std::size_t& item) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    bool const negative = text.starts_with('-');
    text.remove_prefix(negative || text.starts_with('+') ? 1 : 0);
    std::size_t number = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc()) {
        return false;
    }
    item = negative ? 0 - number : number; // extraction negates in the unsigned type, so -1 is npos
    return true;
}

/// Reads a step that has a "[" at `open`.
void readBrackets(PathStep& step, std::size_t open) {
    // The cut counts from the head of the step, so it ends the number early only where a "]" stands
    // before the "[".
    std::string_view const number = step.text.substr(open + 1).substr(0, step.text.find(']'));
    step.readable = readItem(number, step.item);
    if (step.readable) {
        step.name = step.text.substr(0, open);
    }
}

} // namespace

std::string_view skipSeparators(std::string_view path, char separator) {
    return path.substr(std::min(path.find_first_not_of(separator), path.size()));
}

PathStep takeStep(std::string_view& path, char separator) {
    PathStep step;
    std::size_t const end = path.find(separator);
    std::string_view const text = path.substr(0, end);
    step.last = end == std::string_view::npos;
    step.text = text;
    path.remove_prefix(step.last ? path.size() : end + 1);
    std::size_t const open = text.find('[');
    if (open == std::string_view::npos) {
        step.name = text;
    } else {
        readBrackets(step, open);
    }
    return step;
}

BlockVector<PathStep> stepsOf(std::string_view path, char separator, bool leaveLast) {
    BlockVector<PathStep> steps;
    while (!path.empty()) {
        path = skipSeparators(path, separator);
        PathStep const step = takeStep(path, separator);
        if (step.name.empty() || (leaveLast && step.last)) {
            break;
        }
        steps.push_back(step);
    }
    return steps;
}

} // namespace QX
