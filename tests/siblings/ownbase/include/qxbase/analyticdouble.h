#pragma once

namespace QX {

/// A number that may not be valid.
class AnalyticDouble {
public:
    AnalyticDouble() {}
    AnalyticDouble(int left, int right)
        : value(right == 0 ? 0.0 : double(left) / right), valid(right != 0) {}

    double get() const { return value; }
    bool isValid() const { return valid; }
    AnalyticDouble operator+(AnalyticDouble const& o) const { return make(value + o.value, o.valid); }
    AnalyticDouble operator-(AnalyticDouble const& o) const { return make(value - o.value, o.valid); }
    AnalyticDouble operator*(AnalyticDouble const& o) const { return make(value * o.value, o.valid); }
    AnalyticDouble operator/(AnalyticDouble const& o) const {
        return o.value == 0 ? AnalyticDouble() : make(value / o.value, o.valid);
    }

    double value = 0;
    bool valid = false;

private:
    AnalyticDouble make(double result, bool otherValid) const {
        AnalyticDouble made;
        made.valid = valid && otherValid;
        made.value = made.valid ? result : 0;
        return made;
    }
};

} // namespace QX
