#pragma once

#include "qx/cell.h"

#include <cstddef>
#include <new>
#include <span>
#include <utility>

namespace QX {

/// The cells of one index: an array that grows at its end.
///
/// Column hold nothing that points into themselves, so that they move by their bytes, a large array by
/// its pages. Growing raises std::length_error or std::bad_alloc and then changes nothing.
class Column {
public:
    Column() = default;
    /// Makes so many empty cells.
    explicit Column(std::size_t size) { resize(size); }
    Column(Column&& other) noexcept
        : cells_(std::exchange(other.cells_, nullptr)), size_(std::exchange(other.size_, 0)),
          capacity_(std::exchange(other.capacity_, 0)) {}
    Column& operator=(Column&& other) noexcept {
        std::swap(cells_, other.cells_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
        return *this;
    }
    ~Column();

    bool empty() const { return size_ == 0; }
    std::size_t size() const { return size_; }
    Cell& operator[](std::size_t j) { return cells_[j]; }
    Cell const& operator[](std::size_t j) const { return cells_[j]; }
    Cell& front() { return *cells_; }
    Cell const& front() const { return *cells_; }
    Cell* begin() { return cells_; }
    Cell const* begin() const { return cells_; }
    Cell* end() { return cells_ + size_; }
    Cell const* end() const { return cells_ + size_; }

    /// Makes room for so many cells in all.
    void reserve(std::size_t capacity) {
        if (capacity > capacity_) {
            grow(capacity);
        }
    }
    /// Adds empty cells or takes cells from the end, to so many in all.
    void resize(std::size_t size) {
        if (size < size_) {
            cut(size);
        }
        reserve(size);
        for (; size_ < size; ++size_) {
            new (cells_ + size_) Cell();
        }
    }
    /// Adds a copy of a cell.
    void push_back(Cell const& cell) {
        if (size_ == capacity_) {
            Cell const kept(cell); // it may lie in this array
            grow(size_ + 1);
            new (cells_ + size_) Cell(kept);
        } else {
            new (cells_ + size_) Cell(cell);
        }
        ++size_;
    }
    /// Adds copies of cells, which must not lie in this array.
    void append(std::span<Cell const> cells);

    /// Adds so many cells that the caller makes at once, in any order; returns where the first is to be.
    Cell* addUnmade(std::size_t count) {
        reserve(size_ + count);
        size_ += count;
        return end() - count;
    }

private:
    /// Takes cells from the end.
    void cut(std::size_t size);
    /// Moves to more room, by a share of what there was.
    void grow(std::size_t least);

    Cell* cells_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

} // namespace QX
