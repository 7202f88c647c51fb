#include "list.h"

#include "failure.h"

#include <string_view>

namespace qxtab {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

// Takes a list apart, field by field.
class Scanner {
public:
    explicit Scanner(std::string const& text) : rest_(text) {}

    std::string field() {
        skipBlanks();
        return rest_.starts_with('"') ? quoted() : plain();
    }
    bool skip(char separator) {
        bool const found = rest_.starts_with(separator);
        rest_.remove_prefix(found ? 1 : 0);
        return found;
    }
    void expectEnd() const {
        if (!rest_.empty()) {
            throw Misuse("'" + std::string(rest_) + "' was not expected in the list");
        }
    }

private:
    void skipBlanks() {
        while (!rest_.empty() && isBlank(rest_.front())) {
            rest_.remove_prefix(1);
        }
    }

    std::string plain() {
        std::string_view text = rest_.substr(0, rest_.find_first_of(",="));
        rest_.remove_prefix(text.size());
        while (!text.empty() && isBlank(text.back())) {
            text.remove_suffix(1);
        }
        return std::string(text);
    }

    std::string quoted() {
        std::string text;
        do {
            rest_.remove_prefix(1); // the opening quote, or the second of two
            std::size_t const end = rest_.find('"');
            if (end == std::string_view::npos) {
                throw Misuse("a quote in the list is not closed");
            }
            text += rest_.substr(0, end);
            rest_.remove_prefix(end + 1);
            text += rest_.starts_with('"') ? "\"" : "";
        } while (rest_.starts_with('"'));
        skipBlanks();
        if (!rest_.empty() && rest_.front() != ',' && rest_.front() != '=') {
            throw Misuse("text follows a closing quote in the list");
        }
        return text;
    }

    std::string_view rest_;
};

} // namespace

std::vector<ListEntry> readList(std::string const& text, ListValues values) {
    std::vector<ListEntry> entries;
    Scanner scanner(text);
    do {
        ListEntry entry{scanner.field(), std::nullopt};
        if (values != ListValues::None && scanner.skip('=')) {
            entry.value = scanner.field();
        } else if (values == ListValues::Must) {
            throw Misuse("a value is missing in the list: it is written NAME=VALUE");
        }
        entries.push_back(std::move(entry));
    } while (scanner.skip(','));
    scanner.expectEnd();
    return entries;
}

std::vector<std::string> readNames(std::string const& text) {
    std::vector<std::string> names;
    for (ListEntry& entry : readList(text, ListValues::None)) {
        names.push_back(std::move(entry.name));
    }
    return names;
}

Condition readCondition(std::string const& text) {
    Scanner scanner(text);
    Condition condition{scanner.field(), {}};
    if (!scanner.skip('=')) {
        throw Misuse("a condition is written NAME=VALUE,VALUE");
    }
    do {
        condition.values.push_back(scanner.field());
    } while (scanner.skip(','));
    scanner.expectEnd();
    return condition;
}

} // namespace qxtab
