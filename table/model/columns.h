#pragma once

#include "table/model/column.h"

#include <cstddef>
#include <new>
#include <utility>

namespace QX {

/// The indices of a table body, a few of them in the body itself: small tables are met by the thousand,
/// each at a place of its own in memory, so every array that they do without saves a wait for it.
class Columns {
public:
    Columns() = default;
    Columns(Columns const&) = delete;
    Columns& operator=(Columns const&) = delete;
    ~Columns();

    bool empty() const { return size_ == 0; }
    std::size_t size() const { return size_; }
    Column& operator[](std::size_t i) { return indices_[i]; }
    Column const& operator[](std::size_t i) const { return indices_[i]; }
    Column& back() { return indices_[size_ - 1]; }
    Column* begin() { return indices_; }
    Column const* begin() const { return indices_; }
    Column* end() { return indices_ + size_; }
    Column const* end() const { return indices_ + size_; }

    /// Makes room for so many indices in all. Raises std::length_error or std::bad_alloc.
    void reserve(std::size_t capacity) {
        if (capacity > capacity_) {
            grow(capacity);
        }
    }
    /// Adds empty indices or takes indices from the end, to so many in all.
    void resize(std::size_t size);
    Column& push_back(Column&& index) {
        reserve(size_ + 1);
        return *new (indices_ + size_++) Column(std::move(index));
    }

private:
    static constexpr std::size_t few = 3;

    Column* inPlace() { return place_.columns; }
    void cut(std::size_t size);
    void grow(std::size_t least);

    Column* indices_ = inPlace();
    std::size_t size_ = 0;
    std::size_t capacity_ = few;
    union Place {
        Place() {} // none is made, so that each is made and ended as it is needed
        ~Place() {}
        Column columns[few];
    } place_;
};

} // namespace QX
