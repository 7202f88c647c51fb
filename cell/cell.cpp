#include "qx/cell.h"

#include "base/immortal.h"
#include "base/makeptr.h"
#include "base/strview.h"
#include "cell/cellempty.h"
#include "cell/cellerror.h"
#include "cell/cellnumeric.h"
#include "cell/cellstring.h"
#include "cell/celltable.h"
#include "cell/numbertext.h"

#include <ostream>
#include <string_view>

namespace QX {

namespace {

constinit Immortal<CellEmpty> const emptyBody;

/// True for "#Err: " or "#Critical: " in any letter case, whatever follows.
bool isErrorText(Str const& text) {
    return Str("#Err: ").comparePrefix(text, true, 1) == 0 ||
           Str("#Critical: ").comparePrefix(text, true, 1) == 0;
}

Ptr<CellImplementation> bodyOf(Str const& text) {
    std::string_view const view = viewOf(text);
    AnalyticDouble const number = readNumber(view);
    if (number.isValid()) {
        return makePtr<CellNumeric>(number);
    }
    if (view.starts_with('#') && isErrorText(text)) {
        return makePtr<CellError>(Status(text, Status::Error, -1));
    }
    if (view == emptyText) {
        return Ptr<CellImplementation>();
    }
    return makePtr<CellString>(text);
}

} // namespace

Cell::Cell(Str const& text) : body_(bodyOf(text)) {
}

Cell::Cell(double value) : body_(makePtr<CellNumeric>(validNumber(value))) {
}

Cell::Cell(AnalyticDouble const& value) : body_(makePtr<CellNumeric>(value)) {
}

Cell::Cell(Status const& status) : body_(makePtr<CellError>(status)) {
}

Cell::Cell(Ptr<Table> const& table) : body_(makePtr<CellTable>(table)) {
}

Cell::Cell(Ptr<Table const> const& table) : body_(makePtr<CellTable>(table)) {
}

CellImplementation const& Cell::body() const {
    CellImplementation const* const held = body_.get();
    return held != nullptr ? *held : emptyBody.object;
}

Cell::CellType Cell::isA() const {
    return body().isA();
}

bool Cell::empty() const {
    return body().empty();
}

Status Cell::get(double& out) const {
    return body().get(out);
}

Status Cell::get(AnalyticDouble& out) const {
    return body().get(out);
}

Status Cell::get(int& out) const {
    return body().get(out);
}

Status Cell::get(bool& out) const {
    return body().get(out);
}

Status Cell::get(Str& out, int precision) const {
    return body().get(out, precision);
}

Status Cell::get(Status& out) const {
    return body().get(out);
}

Status Cell::get(Ptr<Table>& out) const {
    return body().get(out);
}

Status Cell::get(Ptr<Table const>& out) const {
    return body().get(out);
}

Status Cell::get(Date& out) const {
    return body().get(out);
}

std::ostream& Cell::display(std::ostream& os) const {
    return body().display(os);
}

bool Cell::compare(Cell const& other, bool flag) const {
    return body().compare(other.body(), flag);
}

bool Cell::operator<(Cell const& other) const {
    return body().lessThan(other.body());
}

Cell const Cell::operation(Cell const& other, Str const& op) const {
    return body().operation(other, op);
}

std::ostream& operator<<(std::ostream& os, Cell const& cell) {
    return cell.display(os);
}

std::ostream& operator<<(std::ostream& os, AnalyticDouble const& number) {
    return os << number.get();
}

} // namespace QX
