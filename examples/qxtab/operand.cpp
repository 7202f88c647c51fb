#include "operand.h"

#include <cstddef>
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

    QX::Cell field() {
        while (!rest_.empty() && isBlank(rest_.front())) {
            rest_.remove_prefix(1);
        }
        return rest_.starts_with('"') ? quoted() : plain();
    }
    bool skip(char separator) {
        bool const found = rest_.starts_with(separator);
        rest_.remove_prefix(found ? 1 : 0);
        return found;
    }
    void expectEnd() const {
        if (!rest_.empty()) {
            throw ListError("\"" + std::string(rest_) + "\" was not expected");
        }
    }

private:
    QX::Cell plain() {
        std::string_view text = rest_.substr(0, rest_.find_first_of(",="));
        rest_.remove_prefix(text.size());
        while (!text.empty() && isBlank(text.back())) {
            text.remove_suffix(1);
        }
        return text.empty() ? QX::Cell() : QX::Cell(QX::Str(std::string(text)));
    }

    QX::Cell quoted() {
        std::string text;
        do {
            rest_.remove_prefix(1); // the opening quote, or the second of two
            std::size_t const end = rest_.find('"');
            if (end == std::string_view::npos) {
                throw ListError("a quote is not closed");
            }
            text += rest_.substr(0, end);
            rest_.remove_prefix(end + 1);
            text += rest_.starts_with('"') ? "\"" : "";
        } while (rest_.starts_with('"'));
        while (!rest_.empty() && isBlank(rest_.front())) {
            rest_.remove_prefix(1);
        }
        if (!rest_.empty() && rest_.front() != ',' && rest_.front() != '=') {
            throw ListError("text follows a closing quote");
        }
        return QX::Cell(QX::Str(text));
    }

    std::string_view rest_;
};

QX::Ptr<QX::Table> emptyOperand() {
    return QX::Ptr<QX::Table>(new QX::Table());
}

enum class Value { none, newName, needed };

QX::Ptr<QX::Table const> readEntries(std::string const& text, Value value) {
    QX::Ptr<QX::Table> const operand = emptyOperand();
    Scanner scanner(text);
    std::size_t k = 0;
    do {
        operand->at(k, 0) = scanner.field();
        if (value != Value::none && scanner.skip('=')) {
            operand->at(k, 1) = scanner.field();
            if (value == Value::newName && operand->get(k, 1).empty()) {
                throw ListError("a new name is missing: it is written NAME=NEWNAME");
            }
        } else if (value == Value::needed) {
            throw ListError("a value is missing: it is written NAME=VALUE");
        }
        ++k;
    } while (scanner.skip(','));
    scanner.expectEnd();
    return operand;
}

} // namespace

QX::Ptr<QX::Table const> readNames(std::string const& text) {
    return readEntries(text, Value::none);
}

QX::Ptr<QX::Table const> readRenames(std::string const& text) {
    return readEntries(text, Value::newName);
}

QX::Ptr<QX::Table const> readValues(std::string const& text) {
    return readEntries(text, Value::needed);
}

QX::Ptr<QX::Table const> readCondition(std::string const& text) {
    QX::Ptr<QX::Table> const operand = emptyOperand();
    Scanner scanner(text);
    operand->at(0, 0) = scanner.field();
    if (!scanner.skip('=')) {
        throw ListError("a condition is written NAME=VALUE,VALUE");
    }
    do {
        operand->at(0, QX::Table::npos) = scanner.field();
    } while (scanner.skip(','));
    scanner.expectEnd();
    return operand;
}

} // namespace qxtab
