// Text to cell and back, and what holds for any two cells.

#include "fuzz/bytes.h"
#include "fuzz/require.h"
#include "table/rows/matchkeys.h"

#include <qx/qx.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <locale>
#include <sstream>

namespace QX {
namespace {

std::string string(Str const& text) {
    return {text.data(), text.size()};
}

std::string textIn(Cell const& cell, int precision = 0) {
    Str text;
    (void)cell.get(text, precision);
    return string(text);
}

double numberIn(Cell const& cell) {
    double number = 0;
    (void)cell.get(number);
    return number;
}

bool same(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

std::string displayed(Cell const& cell) {
    std::ostringstream os;
    os.imbue(std::locale::classic());
    os.precision(17);
    os << cell;
    return os.str();
}

/// Reads values from a text as a stream of the classic locale does, with nothing allowed to follow.
template <typename... T>
bool extracted(std::string const& text, T&... values) {
    std::istringstream in(text);
    in.imbue(std::locale::classic());
    return (in >> ... >> values) && in.eof();
}

/// The number that a text reads as, by the plain way through a stream.
AnalyticDouble extractedNumber(std::string const& text) {
    AnalyticDouble number;
    std::int32_t low = 0;
    std::int32_t high = 0;
    if (text.starts_with("##")) {
        number.valid = text.size() > 2 && extracted(text.substr(3), low, high);
        auto const half = [](std::int32_t value) { return std::uint64_t{std::uint32_t(value)}; };
        number.value = number.valid ? std::bit_cast<double>(half(high) << 32U | half(low)) : 0.0;
    } else if (text.starts_with("[Numeric]")) {
        bool const read = text.size() > 9 && extracted(text.substr(10), low, high);
        number = read ? AnalyticDouble(low, high) : AnalyticDouble();
    } else {
        number.valid = extracted(text, number.value);
    }
    return number;
}

void checkReading(Cell const& cell, std::string const& text) {
    AnalyticDouble const number = extractedNumber(text);
    require((cell.isA() == Cell::NumericCell) == number.valid, "a text that reads as a number", text);
    require(!number.valid || same(numberIn(cell), number.value), "the number that a text reads as",
            text);
    require(cell.isA() != Cell::StringCell || textIn(cell) == text, "a text stays what it was", text);
    require(cell.isA() != Cell::EmptyCell || text == "[Empty]", "the text of an empty cell", text);
}

void checkBack(Cell const& cell) {
    std::string const shown = displayed(cell);
    Cell const again{Str(shown)};
    Cell const fromText{Str(textIn(cell))};
    switch (cell.isA()) {
    case Cell::EmptyCell:
        require(again.isA() == Cell::EmptyCell, "an empty cell reads back");
        break;
    case Cell::StringCell:
        require(again.isA() == Cell::StringCell && textIn(again) == textIn(cell), "a text reads back");
        break;
    case Cell::NumericCell:
        if (!std::isinf(numberIn(cell))) {
            require(again.compare(cell, false), "a number reads back from its printed form", shown);
        }
        if (std::isfinite(numberIn(cell))) {
            require(same(numberIn(fromText), numberIn(cell)), "a number reads back from its text",
                    shown);
            require(Cell(Str(textIn(cell, -1))).compare(cell, false), "the exact text", shown);
        }
        break;
    case Cell::ErrorCell:
        require(shown.empty() && fromText.isA() == Cell::ErrorCell, "an error reads back");
        require(textIn(fromText) == textIn(cell), "the text of an error");
        break;
    case Cell::TableCell:
        require(false, "no text is a table");
    }
}

/// Every conversion, each of which succeeds for some kinds alone.
void checkConversions(Cell const& cell, int precision) {
    bool const numeric = cell.isA() == Cell::NumericCell;
    double number = 0.5;
    AnalyticDouble analytic;
    int whole = 7;
    bool truth = false;
    Str text;
    Date date;
    Status status;
    Ptr<Table> table;
    Ptr<Table const> constTable;
    require(cell.get(number).ok() == numeric, "only numbers read as double");
    require(numeric || same(number, 0.5), "a failed conversion leaves its target");
    require(cell.get(analytic).ok() == numeric, "only numbers read as AnalyticDouble");
    require(numeric || (!cell.get(whole).ok() && whole == 7), "only numbers read as int");
    if (cell.get(whole).ok() && std::isfinite(number)) {
        double const most = std::max({1.0, std::fabs(number), std::fabs(double(whole))});
        require(std::fabs(whole - number) <= most * 2.220446049250313e-16, "a whole number");
    }
    require(cell.get(truth).ok(), "every cell but a table reads as bool");
    require(cell.get(text, precision).ok(), "every cell but a table reads as text");
    require(cell.get(date).ok() == date.isValid(), "a date that was read is valid");
    require(cell.get(status).ok() == (cell.isA() == Cell::ErrorCell), "only errors read as status");
    require(!cell.get(table).ok() && !cell.get(constTable).ok() && !table, "no table");
}

/// True when a cell that is filed under its keys is found by those of another.
bool shareKey(Cell const& filed, Cell const& sought) {
    MatchHash const hash(1, 2);
    bool shared = false;
    forEachKeyOf(hash, filed, {}, [&](MatchKey const& of) {
        forEachKeyFor(hash, sought, {},
                      [&](MatchKey const& by) { shared |= of == by && of.hash == by.hash; });
    });
    return shared;
}

void checkPair(Cell const& a, Cell const& b) {
    bool const equal = a.compare(b, false);
    require(!equal || shareKey(a, b), "equal cells share a key");
    require(!equal || a.compare(b, true), "equal texts are equal in any case");
    require(a.isA() != Cell::EmptyCell || equal == (b.empty()), "what an empty cell equals");
    require(b.isA() != Cell::EmptyCell || equal == (a.isA() == Cell::EmptyCell), "what equals empty");
    require(a.isA() != Cell::EmptyCell || a < b, "an empty cell is before all");
    require(a.isA() != Cell::ErrorCell || !(a < b), "an error is before nothing");
    bool const numbers = a.isA() == Cell::NumericCell && b.isA() == Cell::NumericCell;
    require(!numbers || (a < b) == (numberIn(a) < numberIn(b)), "the order of numbers");
    bool const texts = a.isA() == Cell::StringCell && b.isA() == Cell::StringCell;
    require(!texts || (a < b) == (textIn(a) < textIn(b)), "the order of texts");
    require(!texts || equal == (textIn(a) == textIn(b)), "the equality of texts");
    bool const valued = a.isA() != Cell::EmptyCell && a.isA() != Cell::ErrorCell &&
                        b.isA() != Cell::EmptyCell && b.isA() != Cell::ErrorCell;
    require(!valued || equal == b.compare(a, false), "numbers and texts equal each other both ways");
}

void checkArithmetic(Cell const& a, Cell const& b) {
    for (char const* op : {"+", "-", "*", "/", "%", "^"}) {
        Cell const made = a.operation(b, op);
        bool const both = a.isA() == Cell::NumericCell && b.isA() == Cell::NumericCell && *op != '^';
        Cell::CellType const failure = a.isA() == Cell::NumericCell ? Cell::StringCell : Cell::ErrorCell;
        require(made.isA() == (both ? Cell::NumericCell : failure), "what arithmetic gives");
    }
}

} // namespace
} // namespace QX

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    QX::Bytes bytes(data, size);
    int const precision = static_cast<std::int8_t>(bytes.byte());
    std::string const texts[] = {bytes.text(size), bytes.rest()};
    QX::Cell const cells[] = {QX::Str(texts[0]), QX::Str(texts[1])};
    for (std::size_t k = 0; k < 2; ++k) {
        QX::checkReading(cells[k], texts[k]);
        QX::checkBack(cells[k]);
        QX::checkConversions(cells[k], precision);
        QX::require(cells[k].compare(cells[k], false), "a cell equals itself");
    }
    for (std::size_t k = 0; k < 2; ++k) {
        QX::checkPair(cells[k], cells[1 - k]);
        QX::checkArithmetic(cells[k], cells[1 - k]);
    }
    return 0;
}
