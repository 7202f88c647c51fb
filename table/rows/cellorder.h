#pragma once

#include "qx/cell.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace QX {

/// Values in a vector.
class PlainValues {
public:
    std::size_t size() const { return values_.size(); }
    Cell const* at(std::size_t k) const { return values_[k]; }
    void insert(std::size_t k, Cell const& value) {
        values_.insert(values_.begin() + static_cast<std::ptrdiff_t>(k), &value);
    }

private:
    std::vector<Cell const*> values_;
};

/// Values in a list of chunks: to insert one among a million moves some thousand pointers.
class ChunkedValues {
public:
    std::size_t size() const { return size_; }
    Cell const* at(std::size_t k) const {
        std::size_t const c = chunkOf(k);
        return chunks_[c][k - begins_[c]];
    }
    void insert(std::size_t k, Cell const& value) {
        std::size_t const c = chunkOf(k);
        Chunk& chunk = chunks_[c];
        chunk.insert(chunk.begin() + static_cast<std::ptrdiff_t>(k - begins_[c]), &value);
        for (std::size_t each = c + 1; each < begins_.size(); ++each) {
            ++begins_[each];
        }
        ++size_;
        if (chunk.size() == longest) {
            halve(c);
        }
    }

private:
    static constexpr std::size_t longest = 2048;

    using Chunk = std::vector<Cell const*>;

    std::size_t chunkOf(std::size_t k) const {
        auto const next = std::upper_bound(begins_.begin(), begins_.end(), k);
        return static_cast<std::size_t>(next - begins_.begin()) - 1;
    }
    void halve(std::size_t c) {
        auto const middle = chunks_[c].begin() + static_cast<std::ptrdiff_t>(longest / 2);
        Chunk second(middle, chunks_[c].end());
        chunks_[c].erase(middle, chunks_[c].end());
        begins_.insert(begins_.begin() + static_cast<std::ptrdiff_t>(c) + 1, begins_[c] + longest / 2);
        chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(c) + 1, std::move(second));
    }

    std::vector<Chunk> chunks_{Chunk()};
    std::vector<std::size_t> begins_{0}; // the place of the first value of each chunk
    std::size_t size_ = 0;
};

/// Puts a value in its place among ordered ones unless it is there already, by Cell::operator<. That need
/// not be a strict weak order: the search stays within bounds whatever it answers, and looks at the same
/// places whatever holds the values.
template <typename Values>
void insertValue(Values& values, Cell const& value) {
    std::size_t low = 0;
    std::size_t high = values.size();
    while (low < high) {
        std::size_t const middle = low + (high - low) / 2;
        if (value < *values.at(middle)) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    if (low == 0 || *values.at(low - 1) < value) {
        values.insert(low, value);
    }
}

} // namespace QX
