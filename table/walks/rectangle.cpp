#include "table/walks/rectangle.h"

#include "base/strview.h"

namespace QX {

bool isMarker(Cell const& cell) {
    if (cell.isA() == Cell::StringCell) {
        std::string_view const text = textOf(cell);
        return text.size() == marker.size() &&
               text.starts_with(marker); // no call, its size being constant
    }
    if (cell.isA() != Cell::ErrorCell) {
        return false;
    }
    Str text;
    (void)cell.get(text, 0); // an error cell of an Ok status shows its text unmarked
    return viewOf(text) == marker;
}

Status checkShape(TableImplementation const& left, TableImplementation const& right) {
    Status status;
    if (left.indices() != right.indices()) {
        status << "do not have matching indices";
    } else if (left.items() != right.items()) {
        status << "do not have matching items";
    }
    return status;
}

} // namespace QX
