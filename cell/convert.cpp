// Cell::get(): what the kinds give, a group for each target. What is not listed is not supported.

#include "base/strview.h"
#include "cell/dates.h"
#include "cell/numbertext.h"
#include "cell/view.h"
#include "qx/detail/failure.h"

#include <string>
#include <utility>

namespace QX {

namespace {

using Detail::failure;

struct TextTarget {
    Str& text;
    int precision;
};

Status give(EmptyView /*empty*/, TextTarget out) {
    out.text = Str();
    return Status();
}

Status give(NumberView view, TextTarget out) {
    double const number = view.number.get();
    if (!view.number.isValid() && out.precision != 0) {
        out.text = "NULL";
    } else if (out.precision == 0 || out.precision < -1 || isWhole(number)) {
        out.text = Str::asString(number);
    } else {
        out.text = out.precision == -1 ? exactText(number) : fixedText(number, out.precision);
    }
    return Status();
}

Status give(ErrorView view, TextTarget out) {
    out.text = view.status.message(true);
    return Status();
}

Status give(EmptyView /*empty*/, bool& out) {
    out = false;
    return Status();
}

Status give(TextView view, bool& out) {
    out = equalTexts(view.text, "TRUE", true);
    return Status();
}

Status give(NumberView view, bool& out) {
    out = view.number.get() != 0.0;
    return Status();
}

Status give(ErrorView /*error*/, bool& out) {
    out = false;
    return Status();
}

Status give(NumberView view, int& out) {
    out = truncated(view.number.get());
    return isWhole(view.number.get()) ? Status() : failure("Integer not equivalent to number");
}

Status give(TextView view, Date& out) {
    out = dateOf(view.text);
    if (out.isValid()) {
        return Status();
    }
    std::string message("String ");
    constexpr std::string_view rest = " is not a recognised date";
    message.reserve(message.size() + view.text.size() + rest.size());
    message += view.text;
    message += rest;
    return Status(Str(std::move(message)), Status::Error, -1);
}

Status give(NumberView view, Date& out) {
    out = dateOf(view.number.get());
    return out.isValid() ? Status() : failure("Not a valid date");
}

Status give(ErrorView /*error*/, Date& out) {
    return give(TextView(), out);
}

Status give(ErrorView view, Status& out) {
    out = Status(view.status.message(false), Status::Error, -1);
    return Status();
}

Status give(TableView view, Ptr<Table>& out) {
    out = view.table;
    return Status();
}

Status give(TableView view, Ptr<Table const>& out) {
    out = view.table;
    return Status();
}

/// Gives what the kind of `cell` gives, or else fails with `complaint`.
template <typename Target>
Status convert(Cell const& cell, Target&& out, char const* complaint) {
    return visit(cell, [&](auto const& view) {
        if constexpr (requires { give(view, out); }) {
            return give(view, out);
        } else {
            return failure(complaint);
        }
    });
}

} // namespace

char const Cell::notDouble[] = "Cell translation to double not supported for this type";
char const Cell::notAnalyticDouble[] = "Cell translation to AnalyticDouble not supported for this type";

Status Cell::getOther(Str& out, int precision) const {
    return convert(*this, TextTarget{out, precision},
                   "Cell translation to string not supported for this type");
}

Status Cell::get(bool& out) const {
    return convert(*this, out, "Cell translation to bool not supported for this type");
}

Status Cell::get(int& out) const {
    return convert(*this, out, "Cell translation to integer not supported for this type");
}

Status Cell::get(Date& out) const {
    return convert(*this, out, "Cell translation to date not supported for this type");
}

Status Cell::get(Status& out) const {
    return convert(*this, out, "Cell translation to status not supported for this type");
}

Status Cell::get(Ptr<Table>& out) const {
    return convert(*this, out, "Cell translation to table not supported for this type");
}

Status Cell::get(Ptr<Table const>& out) const {
    return convert(*this, out, "Cell translation to const table not supported for this type");
}

} // namespace QX
