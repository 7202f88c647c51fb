#include "failure.h"

#include <qx/ease/suggest.h>

#include <algorithm>

namespace qxtab {

void require(QX::Status const& status) {
    if (!status.ok()) {
        throw Failure(bytes(status.message(false)));
    }
}

std::string bytes(QX::Str const& text) {
    return std::string(text.data(), text.size());
}

QX::Str text(std::string_view bytes) {
    return QX::Str(std::string(bytes));
}

std::string suggestion(std::string_view word, std::vector<std::string> const& words) {
    std::size_t const longest = 64; // longer words are not compared
    std::string const* nearest = nullptr;
    std::size_t fewest = std::max<std::size_t>(word.size() / 3, 1) + 1;
    for (std::string const& each : words) {
        if (word.size() <= longest && each.size() <= longest) {
            std::size_t const edits = QX::Detail::editsBetween(word, each);
            if (edits < fewest) {
                fewest = edits;
                nearest = &each;
            }
        }
    }
    for (std::string const& each : words) {
        if (nearest == nullptr && !word.empty() && each.starts_with(word)) {
            nearest = &each;
        }
    }
    return nearest == nullptr ? "" : ", did you mean '" + *nearest + "'?";
}

} // namespace qxtab
