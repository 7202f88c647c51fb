#pragma once

#include "table/src/cells.h"

#include <cstddef>
#include <new>
#include <utility>

namespace QX {

/// The indices of a table body, a few of them in the body itself: small tables are met by the thousand,
/// each at a place of its own in memory, so every array that they do without saves a wait for it.
class Indices {
public:
    Indices() = default;
    Indices(Indices const&) = delete;
    Indices& operator=(Indices const&) = delete;
    ~Indices();

    bool empty() const { return size_ == 0; }
    std::size_t size() const { return size_; }
    Cells& operator[](std::size_t i) { return indices_[i]; }
    Cells const& operator[](std::size_t i) const { return indices_[i]; }
    Cells& back() { return indices_[size_ - 1]; }
    Cells* begin() { return indices_; }
    Cells const* begin() const { return indices_; }
    Cells* end() { return indices_ + size_; }
    Cells const* end() const { return indices_ + size_; }

    /// Makes room for so many indices in all. Raises std::length_error or std::bad_alloc.
    void reserve(std::size_t capacity) {
        if (capacity > capacity_) {
            grow(capacity);
        }
    }
    /// Adds empty indices or takes indices from the end, to so many in all.
    void resize(std::size_t size);
    Cells& push_back(Cells&& index) {
        reserve(size_ + 1);
        return *new (indices_ + size_++) Cells(std::move(index));
    }

private:
    static constexpr std::size_t few = 3;

    Cells* inPlace() { return reinterpret_cast<Cells*>(place_); }
    void cut(std::size_t size);
    void grow(std::size_t least);

    Cells* indices_ = inPlace();
    std::size_t size_ = 0;
    std::size_t capacity_ = few;
    alignas(Cells) std::byte place_[few * sizeof(Cells)];
};

} // namespace QX
