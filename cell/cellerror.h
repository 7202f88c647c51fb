#pragma once

#include "cell/cellstring.h"

#include <utility>

namespace QX {

/// The body of an error cell: a status. Its inherited text stays empty, which is what it displays and
/// orders by.
class CellError final : public CellString {
public:
    using CellString::get;

    explicit CellError(Status status) : CellString(std::string_view()), status_(std::move(status)) {}
    ~CellError() override;

    bool compare(CellImplementation const& other, bool flag) const override;
    Cell::CellType isA() const override { return Cell::ErrorCell; }
    bool empty() const override { return false; }
    Status get(Status& out) const override;
    Status get(Str& out, int precision) const override;
    bool lessThan(CellImplementation const& other) const override;

private:
    Status status_;
};

} // namespace QX
