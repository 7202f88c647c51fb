#include "cell/displaytext.h"

#include "cell/cellvalue.h"
#include "cell/numbertext.h"

#include <limits>
#include <locale>
#include <sstream>

namespace QX {

void appendDisplayText(std::string& text, Cell const& cell) {
    constexpr int digits = std::numeric_limits<double>::max_digits10;
    CellValue const value = valueOf(cell);
    if (value.kind == Cell::StringCell) {
        text += value.text;
    } else if (value.kind == Cell::NumericCell && value.number.isValid()) {
        if (isWhole(value.number.get())) {
            appendGeneral(text, value.number.get(), digits);
        } else {
            appendExact(text, value.number.get());
        }
    } else {
        std::ostringstream stream;
        stream.imbue(std::locale::classic());
        stream.exceptions(std::ios::badbit); // a text cut short for want of memory would equal others
        stream.precision(digits);
        stream << cell;
        text += stream.str();
    }
}

} // namespace QX
