#include "cell/dates.h"

#include "base/strview.h"
#include "cell/plaintext.h"
#include "cell/view.h"

namespace QX {

Date dateOf(std::string_view text) {
    return isPlainText(text) ? Date() : Date(toStr(text), Str());
}

bool isDate(Cell const& cell) {
    return cell.isA() == Cell::StringCell && dateOf(textOf(cell)).isValid();
}

} // namespace QX
