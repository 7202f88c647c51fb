#pragma once

#include "cell/cellimplementation.h"
#include "cell/numbertext.h"

#include <string_view>

namespace QX {

/// What a number displays that is not valid.
inline constexpr std::string_view undefinedText = "[Undefined]";

/// The body of a number.
class CellNumeric final : public CellImplementation {
public:
    using CellImplementation::get;

    explicit CellNumeric(AnalyticDouble const& value) : value_(value) {}

    bool compare(CellImplementation const& other, bool /*flag*/) const override {
        return other.isA() == Cell::NumericCell ? equalNumbers(value_.get(), numberIn(other))
                                                : hasDate(other);
    }
    Ptr<CellImplementation> clone() const override;
    std::ostream& display(std::ostream& os) const override;
    Cell::CellType isA() const override { return Cell::NumericCell; }
    bool empty() const override { return !value_.isValid(); }
    Status get(Date& out) const override;
    Status get(Str& out, int precision) const override;
    Status get(bool& out) const override;
    Status get(int& out) const override;
    Status get(AnalyticDouble& out) const override {
        out = value_;
        return Status();
    }
    Status get(double& out) const override {
        out = value_.get();
        return Status();
    }
    Cell operation(Cell const& other, Str const& op) const override;
    bool lessThan(CellImplementation const& other) const override {
        return other.isA() == Cell::NumericCell ? value_.get() < numberIn(other) : isBefore(other);
    }

    AnalyticDouble const& value() const { return value_; }
    /// The date that lies as many days after 1970-01-01, valid or not.
    Date date() const;

private:
    static double numberIn(CellImplementation const& numeric) {
        return static_cast<CellNumeric const&>(numeric).value_.get();
    }
    /// True when `other`, no number, is the text of this one's date.
    bool hasDate(CellImplementation const& other) const;
    /// True when this one is before `other`, no number.
    bool isBefore(CellImplementation const& other) const;

    AnalyticDouble value_;
};

} // namespace QX
