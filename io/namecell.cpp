#include "io/namecell.h"

#include "io/numberform.h"
#include "qx/text.h"

namespace QX {

Cell nameCell(std::string_view name) {
    ReadNumber number;
    if (readExact(name, EndZeros::Keep, number)) {
        return Cell(number.value);
    }
    Cell const cell{Str(std::string(name))};
    return cell.isA() == Cell::StringCell ? cell : textCell(name);
}

} // namespace QX
