// How cells are made, above all of texts.

#include "qx/cell.h"

#include "base/makeptr.h"
#include "base/strview.h"
#include "cell/cellimplementation.h"
#include "cell/nested.h"
#include "cell/numbertext.h"
#include "cell/plaintext.h"
#include "cell/print.h"

#include <bit>
#include <string_view>

namespace QX {

namespace {

using Detail::CellContent;

static_assert(std::endian::native == std::endian::little, "a short text follows the tag's lowest byte");

/// True for "#Err: " or "#Critical: " in any letter case, whatever follows.
bool isErrorText(Str const& text) {
    return Str("#Err: ").comparePrefix(text, true, 1) == 0 ||
           Str("#Critical: ").comparePrefix(text, true, 1) == 0;
}

CellContent errorOf(Status const& status) {
    auto* const counted = makeCounted<Status>(status);
    return CellContent(&counted->object, counted);
}

/// The content that a text reads as.
CellContent readFrom(Str const& text) {
    std::string_view const view = viewOf(text);
    if (isPlainText(view)) {
        return CellContent::ofText(view);
    }
    AnalyticDouble const number = readNumber(view);
    if (number.isValid()) {
        return CellContent(number.get(), true);
    }
    if (view.starts_with('#') && isErrorText(text)) {
        return errorOf(Status(text, Status::Error, -1));
    }
    if (view == emptyText) {
        return CellContent();
    }
    return CellContent::ofText(view);
}

} // namespace

Cell::Cell(Str const& text) : content_(readFrom(text)) {
}

Cell::Cell(Ptr<CellImplementation> const& body) : Cell(body ? body->cell() : Cell()) {
}

Cell::Cell(Status const& status) : content_(errorOf(status)) {
}

Cell::Cell(Ptr<Table> const& table) : content_(NestedTable::sharing(table)) {
}

Cell::Cell(Ptr<Table const> const& table) : content_(NestedTable::copying(table)) {
}

} // namespace QX
