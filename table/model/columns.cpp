#include "table/model/columns.h"

#include "memory/blocks.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace QX {

Columns::~Columns() {
    cut(0);
    if (indices_ != inPlace()) {
        giveArray(indices_, capacity_ * sizeof(Column));
    }
}

void Columns::resize(std::size_t size) {
    if (size < size_) {
        cut(size);
    }
    reserve(size);
    for (; size_ < size; ++size_) {
        new (indices_ + size_) Column();
    }
}

void Columns::cut(std::size_t size) {
    while (size_ > size) {
        --size_;
        indices_[size_].~Column();
    }
}

void Columns::grow(std::size_t least) {
    constexpr std::size_t most = std::numeric_limits<std::size_t>::max() / sizeof(Column);
    if (least > most) {
        throw std::length_error("Too many indices in a table");
    }
    std::size_t const capacity = std::max(least, std::min(2 * capacity_, most));
    auto* const grown = static_cast<Column*>(takeArray(capacity * sizeof(Column)));
    for (std::size_t i = 0; i < size_; ++i) {
        new (grown + i) Column(std::move(indices_[i]));
    }
    if (indices_ != inPlace()) {
        giveArray(indices_, capacity_ * sizeof(Column));
    }
    indices_ = grown;
    capacity_ = capacity;
}

} // namespace QX
