#include "qx/cell.h"

#include "base/makeptr.h"
#include "base/strview.h"
#include "cell/cellbody.h"
#include "cell/cellempty.h"
#include "cell/cellequal.h"
#include "cell/cellerror.h"
#include "cell/cellnumeric.h"
#include "cell/cellstring.h"
#include "cell/celltable.h"
#include "cell/numbertext.h"
#include "cell/plaintext.h"
#include "cell/sharedtext.h"

#include <bit>
#include <ostream>
#include <string_view>
#include <utility>

namespace QX {

namespace {

using Detail::CellContent;

/// True for "#Err: " or "#Critical: " in any letter case, whatever follows.
bool isErrorText(Str const& text) {
    return Str("#Err: ").comparePrefix(text, true, 1) == 0 ||
           Str("#Critical: ").comparePrefix(text, true, 1) == 0;
}

static_assert(std::endian::native == std::endian::little, "a short text follows the tag's lowest byte");

/// Takes over one count of a body.
CellContent contentOf(Counted<CellTable>* body) {
    return CellContent(body->object.table().get(), body);
}

CellContent contentOf(Counted<CellError>* body) {
    return CellContent(&body->object, body);
}

/// A string cell's content, whatever the text reads as.
CellContent stringOf(std::string_view text) {
    if (text.size() <= CellContent::longestInPlace) {
        return CellContent(text.data(), text.size());
    }
    return CellContent(SharedText::make(text));
}

/// The content that a text reads as.
CellContent readFrom(Str const& text) {
    std::string_view const view = viewOf(text);
    if (isPlainText(view)) {
        return stringOf(view);
    }
    AnalyticDouble const number = readNumber(view);
    if (number.isValid()) {
        return CellContent(number.get(), true);
    }
    if (view.starts_with('#') && isErrorText(text)) {
        return contentOf(makeCounted<CellError>(Status(text, Status::Error, -1)));
    }
    if (view == emptyText) {
        return CellContent();
    }
    return stringOf(view);
}

} // namespace

Cell::Cell(Str const& text) : content_(readFrom(text)) {
}

Cell::Cell(Ptr<CellImplementation> const& body) {
    if (!body) {
        return;
    }
    switch (body->isA()) {
    case EmptyCell:
        break;
    case StringCell:
        content_ = stringOf(static_cast<CellString const&>(*body).text());
        break;
    case NumericCell:
        content_ = CellContent(static_cast<CellNumeric const&>(*body).value());
        break;
    case TableCell:
        body.block()->increment();
        content_ = contentOf(static_cast<Counted<CellTable>*>(body.block()));
        break;
    case ErrorCell:
        body.block()->increment();
        content_ = contentOf(static_cast<Counted<CellError>*>(body.block()));
        break;
    }
}

Cell::Cell(Status const& status) : content_(contentOf(makeCounted<CellError>(status))) {
}

Cell::Cell(Ptr<Table> const& table) : content_(contentOf(makeCounted<CellTable>(table))) {
}

Cell::Cell(Ptr<Table const> const& table) : content_(contentOf(makeCounted<CellTable>(table))) {
}

Status Cell::get(double& out) const {
    return onBody(*this, [&](auto const& body) { return body.get(out); });
}

Status Cell::get(AnalyticDouble& out) const {
    return onBody(*this, [&](auto const& body) { return body.get(out); });
}

Status Cell::get(int& out) const {
    return onBody(*this, [&](auto const& body) { return body.get(out); });
}

Status Cell::get(bool& out) const {
    return onBody(*this, [&](auto const& body) { return body.get(out); });
}

Status Cell::get(Str& out, int precision) const {
    return onBody(*this, [&](auto const& body) { return body.get(out, precision); });
}

Status Cell::get(Status& out) const {
    return onBody(*this, [&](auto const& body) { return body.get(out); });
}

Status Cell::get(Ptr<Table>& out) const {
    return onBody(*this, [&](auto const& body) { return body.get(out); });
}

Status Cell::get(Ptr<Table const>& out) const {
    return onBody(*this, [&](auto const& body) { return body.get(out); });
}

Status Cell::get(Date& out) const {
    return onBody(*this, [&](auto const& body) { return body.get(out); });
}

std::ostream& Cell::display(std::ostream& os) const {
    return onBody(*this, [&](auto const& body) -> std::ostream& { return body.display(os); });
}

bool equalBodies(Cell const& left, Cell const& right, bool flag) {
    return onBody(left, [&](auto const& body) {
        return onBody(right, [&](auto const& other) { return body.compare(other, flag); });
    });
}

bool Cell::compare(Cell const& other, bool flag) const {
    return equalCells(*this, other, flag);
}

bool Cell::operator<(Cell const& other) const {
    return onBody(*this, [&](auto const& body) {
        return onBody(other, [&](auto const& others) { return body.lessThan(others); });
    });
}

Cell const Cell::operation(Cell const& other, Str const& op) const {
    return onBody(*this, [&](auto const& body) { return body.operation(other, op); });
}

std::ostream& operator<<(std::ostream& os, Cell const& cell) {
    return cell.display(os);
}

std::ostream& operator<<(std::ostream& os, AnalyticDouble const& number) {
    return os << number.get();
}

} // namespace QX
