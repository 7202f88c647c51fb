#include "table/model/column.h"

#include "cell/movable.h"
#include "memory/blocks.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

namespace QX {

Column::~Column() {
    cut(0);
    giveArray(cells_, capacity_ * sizeof(Cell));
}

void Column::cut(std::size_t size) {
    while (size_ > size) {
        --size_;
        cells_[size_].Cell::~Cell(); // of no derived class, so that no virtual call is needed
    }
}

void Column::append(std::span<Cell const> cells) {
    reserve(size_ + cells.size());
    std::uninitialized_copy(cells.begin(), cells.end(), end());
    size_ += cells.size();
}

void Column::grow(std::size_t least) {
    constexpr std::size_t most = std::numeric_limits<std::size_t>::max() / sizeof(Cell);
    if (least > most) {
        throw std::length_error("Too many items in an index");
    }
    constexpr std::size_t many = 500'000; // take more memory in advance than moving them takes time
    std::size_t const more = capacity_ < many ? capacity_ : capacity_ / 2;
    std::size_t const capacity = std::max(least, std::min(capacity_ + more, most));
    static_assert(isBytewiseMovable<Cell>);
    void* const grown = growArray(cells_, capacity_ * sizeof(Cell), capacity * sizeof(Cell));
    cells_ = std::launder(static_cast<Cell*>(grown));
    capacity_ = capacity;
}

} // namespace QX
