#pragma once

#include "cell/cellimplementation.h"

#include <string_view>

namespace QX {

/// The body of a string cell: a view of its text.
class CellString : public CellImplementation {
public:
    using CellImplementation::get;

    /// Looks at `text`, which must outlive this.
    explicit CellString(std::string_view text) : text_(text) {}

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
    std::string_view text() const { return text_; }
    /// The date that the text is; not valid when it is none.
    Date date() const;

private:
    std::string_view text_;
};

} // namespace QX
