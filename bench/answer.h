#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace Bench {

/// What a job gave, in short: how many rows, and a sum that differs when their values do.
struct Answer {
    std::size_t rows = 0;
    std::uint64_t sum = 0;

    friend bool operator==(Answer const& left, Answer const& right) = default;
};

/// Whether the order of the rows is part of the answer.
enum class Order { Kept, Any };

/// Takes in values row by row.
class Tally {
public:
    explicit Tally(Order order = Order::Kept) : order_(order) {}

    Tally& operator<<(double value) {
        mix(std::hash<double>()(value));
        return *this;
    }
    Tally& operator<<(std::string_view value) {
        mix(std::hash<std::string_view>()(value));
        return *this;
    }
    /// Ends a row.
    void endRow() {
        answer_.sum += order_ == Order::Kept ? row_ * (2 * answer_.rows + 1) : row_;
        ++answer_.rows;
        row_ = 0;
    }
    Answer answer() const { return answer_; }

private:
    void mix(std::uint64_t value) { row_ = (row_ ^ value) * 0x9E3779B97F4A7C15U + (row_ >> 29U); }

    Order order_;
    std::uint64_t row_ = 0;
    Answer answer_;
};

/// The answer of a job that gives a single number, such as a sum or a count.
inline Answer single(double value) {
    Tally tally;
    tally << value;
    tally.endRow();
    return tally.answer();
}

} // namespace Bench
