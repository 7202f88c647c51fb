#include "cell/cellstring.h"

#include "base/makeptr.h"
#include "base/strview.h"
#include "cell/cellnumeric.h"
#include "cell/plaintext.h"

#include <ostream>

namespace QX {

namespace {

bool hasText(CellImplementation const& body) {
    return body.isA() == Cell::StringCell || body.isA() == Cell::ErrorCell;
}

/// A text that outlives the base made after it.
struct KeptText {
    Str kept;
};

/// The body of a string cell of its own.
class OwnString final : KeptText, public CellString {
public:
    explicit OwnString(std::string_view text) : KeptText{toStr(text)}, CellString(viewOf(kept)) {}
};

} // namespace

bool CellString::compare(CellImplementation const& other, bool flag) const {
    if (hasText(other)) {
        return equalTexts(text_, static_cast<CellString const&>(other).text_, flag);
    }
    if (other.isA() != Cell::NumericCell) {
        return false;
    }
    Date const own = date();
    return own.isValid() && own.days() == static_cast<CellNumeric const&>(other).date().days();
}

Ptr<CellImplementation> CellString::clone() const {
    return makePtr<OwnString>(text_);
}

std::ostream& CellString::display(std::ostream& os) const {
    return os << text_;
}

Status CellString::get(Date& out) const {
    out = date();
    if (out.isValid()) {
        return Status();
    }
    Status failure("String ", Status::Error, -1);
    failure << toStr(text_) << " is not a recognised date";
    return failure;
}

Status CellString::get(Str& out, int /*precision*/) const {
    out.assign(text_.data(), text_.size());
    return Status();
}

Status CellString::get(bool& out) const {
    out = equalTexts(text_, "TRUE", true);
    return Status();
}

Date CellString::date() const {
    return isPlainText(text_) ? Date() : Date(toStr(text_), Str());
}

bool CellString::lessThan(CellImplementation const& other) const {
    if (hasText(other)) {
        return text_ < static_cast<CellString const&>(other).text_;
    }
    if (other.isA() != Cell::NumericCell) {
        return true;
    }
    Date const own = date();
    return own.isValid() && static_cast<CellNumeric const&>(other).date().days() < own.days();
}

} // namespace QX
