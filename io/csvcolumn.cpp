#include "io/csvcolumn.h"

#include "io/message.h"
#include "qx/text.h"

#include <chrono>

namespace QX {

namespace {

unsigned digitsAt(std::string_view text, std::size_t from, std::size_t count) {
    unsigned value = 0;
    for (char const c : text.substr(from, count)) {
        value = value * 10 + static_cast<unsigned>(c - '0');
    }
    return value;
}

/// True for YYYY-MM-DD of a real day.
bool isDate(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') {
        return false;
    }
    for (std::size_t const i : {0U, 1U, 2U, 3U, 5U, 6U, 8U, 9U}) {
        if (text[i] < '0' || text[i] > '9') {
            return false;
        }
    }
    auto const year = static_cast<int>(digitsAt(text, 0, 4));
    return year > 0 &&
           std::chrono::year_month_day(std::chrono::year(year), std::chrono::month(digitsAt(text, 5, 2)),
                                       std::chrono::day(digitsAt(text, 8, 2)))
               .ok();
}

/// False for most texts that are no number, as their first character tells.
bool mayBeNumber(std::string_view text) {
    char const first = text.empty() ? 'x' : text.front();
    return (first >= '0' && first <= '9') || first == '-' || first == '+' || first == '.' ||
           first == ' ' || first == '\t';
}

Str toStr(std::string_view text) {
    Str made;
    made.assign(text.data(), text.size());
    return made;
}

/// The text of a date in a format as YYYY-MM-DD; empty when it is none.
std::string isoDate(std::string_view text, std::string const& format) {
    if (format.empty()) {
        return isDate(text) ? std::string(text) : std::string();
    }
    Str const iso = Date(toStr(text), format).getDate(Str());
    return {iso.data(), iso.size()};
}

} // namespace

CsvColumnReader::CsvColumnReader(std::size_t index, std::string_view name, CsvType type)
    : index_(index) {
    counts_.name = name;
    switch (type) {
    case CsvType::Guess:
        state_ = State::Open;
        break;
    case CsvType::Text:
        state_ = State::Texts;
        break;
    case CsvType::Number:
        state_ = State::AskedNumbers;
        break;
    case CsvType::Date:
        state_ = State::AskedDates;
        break;
    }
}

CsvColumn CsvColumnReader::counts(std::size_t rows) const {
    CsvColumn all = counts_;
    bool const numbers = state_ == State::Numbers || state_ == State::AskedNumbers;
    bool const dates = state_ == State::Dates || state_ == State::AskedDates;
    all.type = numbers ? CsvType::Number : dates ? CsvType::Date : CsvType::Text;
    all.empty = rows - all.numbers - all.altered - all.dates - all.texts;
    return all;
}

void CsvColumnReader::takeText(Table& table, std::size_t row, std::string_view text,
                               CsvScanner const& scanner) {
    table.at(index_, row) = textCell(text);
    if (mayBeNumber(text)) {
        count(text, scanner);
    } else {
        ++counts_.texts;
    }
}

void CsvColumnReader::takeOther(Table& table, std::size_t row, std::string_view text,
                                CsvScanner const& scanner, CsvReadOptions const& options) {
    EndZeros const zeros = options.dropZeros ? EndZeros::Drop : EndZeros::Keep;
    switch (state_) {
    case State::AskedNumbers:
        return takeAskedNumber(table, row, text, scanner, options);
    case State::AskedDates:
        return takeAskedDate(table, row, text, scanner, options);
    case State::Open:
    case State::Numbers:
        if (takeNumber(table, row, text, scanner, zeros)) {
            state_ = State::Numbers;
            return;
        }
        if (state_ == State::Numbers) {
            numbersToTexts(table, row);
        }
        state_ = state_ == State::Open && isDate(text) ? State::Dates : State::Texts;
        break;
    case State::Dates:
        state_ = isDate(text) ? State::Dates : State::Texts;
        break;
    case State::Texts:
        break;
    }
    takeText(table, row, text, scanner);
}

bool CsvColumnReader::takeNumber(Table& table, std::size_t row, std::string_view text,
                                 CsvScanner const& scanner, EndZeros zeros) {
    ReadNumber number;
    if (!readExact(text, zeros, number)) {
        return false;
    }
    table.at(index_, row) = Cell(number.value);
    if (number.places == 0) {
        ++counts_.numbers;
        return true;
    }
    ++counts_.altered;
    markOdd(text, scanner);
    shortened_.push_back({row, number.places});
    return true;
}

void CsvColumnReader::takeAskedNumber(Table& table, std::size_t row, std::string_view text,
                                      CsvScanner const& scanner, CsvReadOptions const& options) {
    if (takeNumber(table, row, text, scanner, EndZeros::Keep)) {
        return;
    }
    double number = 0;
    if (!readAny(text, number)) {
        return misfit(table, row, text, scanner, options, "number");
    }
    table.at(index_, row) = Cell(number);
    ++counts_.altered;
    markOdd(text, scanner);
}

void CsvColumnReader::takeAskedDate(Table& table, std::size_t row, std::string_view text,
                                    CsvScanner const& scanner, CsvReadOptions const& options) {
    std::string const iso = isoDate(text, options.dateFormat);
    if (iso.empty()) {
        return misfit(table, row, text, scanner, options, "date");
    }
    table.at(index_, row) = textCell(iso);
    ++counts_.dates;
}

void CsvColumnReader::misfit(Table& table, std::size_t row, std::string_view text,
                             CsvScanner const& scanner, CsvReadOptions const& options,
                             char const* wanted) {
    if (options.strict) {
        scanner.fail(quotedForMessage(text) + " in the column " + quotedForMessage(counts_.name) +
                     " is no " + wanted);
    }
    markOdd(text, scanner);
    takeText(table, row, text, scanner);
}

void CsvColumnReader::count(std::string_view text, CsvScanner const& scanner) {
    ReadNumber number;
    double any = 0;
    if (readExact(text, EndZeros::Keep, number)) {
        ++counts_.numbers;
    } else if (isDate(text)) {
        ++counts_.dates;
    } else if (readAny(text, any)) {
        ++counts_.altered;
        markOdd(text, scanner);
    } else {
        ++counts_.texts;
    }
}

void CsvColumnReader::markOdd(std::string_view text, CsvScanner const& scanner) {
    if (counts_.oddLine == 0) {
        counts_.oddLine = scanner.fieldLine();
        counts_.oddText = text.substr(0, sampleSize);
    }
}

void CsvColumnReader::numbersToTexts(Table& table, std::size_t row) {
    std::string text;
    auto next = shortened_.begin();
    for (std::size_t j = 1; j < row; ++j) {
        double number = 0;
        if (!table.get(index_, j).get(number).ok()) {
            continue;
        }
        text.clear();
        if (next != shortened_.end() && next->row == j) {
            appendFixed(text, number, next->places);
            ++next;
        } else {
            appendNumber(text, number);
        }
        table.at(index_, j) = textCell(text);
    }
    shortened_ = {};
}

} // namespace QX
