#pragma once

#include "cell/cellimplementation.h"

#include <utility>

namespace QX {

/// The body of a string cell.
class CellString : public CellImplementation {
public:
    using CellImplementation::get;

    explicit CellString(Str const& text) : text_(text) {}
    explicit CellString(Str&& text) : text_(std::move(text)) {}
    ~CellString() override;

    bool compare(CellImplementation const& other, bool flag) const override;
    Ptr<CellImplementation> clone() const override;
    std::ostream& display(std::ostream& os) const override;
    Cell::CellType isA() const override { return Cell::StringCell; }
    bool empty() const override { return text_.empty(); }
    Status get(Date& out) const override;
    Status get(Str& out, int precision) const override;
    Status get(bool& out) const override;
    bool lessThan(CellImplementation const& other) const override;

    /// The text, which is empty for an error body.
    Str const& text() const { return text_; }
    /// The date that the text is; not valid when it is none.
    Date date() const { return Date(text_, Str()); }

private:
    Str text_;
};

} // namespace QX
