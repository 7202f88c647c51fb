#include "cell/displaytext.h"

#include "cell/cellempty.h"
#include "cell/cellnumeric.h"
#include "cell/cellvalue.h"
#include "cell/numbertext.h"

#include <locale>
#include <sstream>

namespace QX {

namespace {

void appendNumber(std::string& text, AnalyticDouble const& number, int digits) {
    if (!number.isValid()) {
        text += undefinedText;
    } else if (isWhole(number.get())) {
        appendGeneral(text, number.get(), digits);
    } else {
        appendExact(text, number.get());
    }
}

void appendTable(std::string& text, Cell const& cell, int digits) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream.exceptions(std::ios::badbit); // a text cut short for want of memory would equal others
    stream.precision(digits);
    stream << cell;
    text += stream.str();
}

} // namespace

void appendDisplayText(std::string& text, Cell const& cell, int digits) {
    switch (cell.isA()) {
    case Cell::EmptyCell:
        text += emptyText;
        break;
    case Cell::StringCell:
        text += textOf(cell);
        break;
    case Cell::NumericCell:
        appendNumber(text, numberOf(cell), digits);
        break;
    case Cell::TableCell:
        appendTable(text, cell, digits);
        break;
    case Cell::ErrorCell:
        break; // displays nothing
    }
}

} // namespace QX
