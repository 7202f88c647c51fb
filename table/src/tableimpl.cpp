#include "table/src/tableimpl.h"

#include "base/immortal.h"
#include "table/src/name.h"

#include <algorithm>
#include <utility>

namespace QX {

TableImplementation::TableImplementation(Str const& name) : name_(name) {
}

TableImplementation::~TableImplementation() = default;

Cell& TableImplementation::sharedEmptyCell() {
    static Immortal<Cell> empty;
    return empty.object;
}

std::size_t TableImplementation::items() const {
    std::size_t most = 0;
    for (Index const& index : indices_) {
        most = std::max(most, index.size());
    }
    return most;
}

Cell const& TableImplementation::get(Str const& name, std::size_t j) const {
    return get(findIndex(Name(viewOf(name))), j);
}

Cell& TableImplementation::at(Str const& name, std::size_t j) {
    return at(Name(viewOf(name)), j);
}

Cell& TableImplementation::at(Name const& name, std::size_t j) {
    std::size_t const i = findIndex(name);
    if (i != npos) {
        return at(i, j);
    }
    std::size_t const position = j == npos ? 1 : j;
    return addSized(name.cell(), position + 1)[position];
}

Cell& TableImplementation::at(std::size_t i, std::size_t j, Cell const& cell) {
    Cell const kept(cell); // growing may move the cell if it lives in this table
    Cell& place = at(i, j);
    place = kept;
    return place;
}

Cell& TableImplementation::at(Str const& name, std::size_t j, Cell const& cell) {
    if (j == npos) {
        at(name, 0);
        return sharedEmptyCell();
    }
    Cell const kept(cell);
    Cell& place = at(name, j);
    place = kept;
    return place;
}

std::size_t TableImplementation::findIndex(Name const& name) const {
    for (std::size_t i = 0; i < indices_.size(); ++i) {
        if (!indices_[i].empty() && name.matches(indices_[i].front())) {
            return i;
        }
    }
    return npos;
}

std::size_t TableImplementation::findIndex(Cell const& name) const {
    return findIndex(Name(name));
}

std::size_t TableImplementation::addIndex(Str const& name) {
    addSized(Cell(name), 1);
    return indices_.size() - 1;
}

Cell& TableImplementation::addUpTo(std::size_t i, std::size_t j) {
    Index added(j + 1); // made first, so that nothing has grown if there is no memory for it
    indices_.resize(i + 1);
    indices_[i] = std::move(added);
    return indices_[i][j];
}

TableImplementation::Index& TableImplementation::addSized(Cell const& name, std::size_t items) {
    Index added(items);
    added.front() = name;
    indices_.push_back(std::move(added));
    return indices_.back();
}

TableImplementation::Index& TableImplementation::addReserved(std::size_t items) {
    Index added;
    added.reserve(items);
    indices_.push_back(std::move(added));
    return indices_.back();
}

void TableImplementation::cut(std::size_t i, std::size_t length) {
    if (length == npos) {
        indices_.resize(i);
    } else {
        indices_[i].resize(length);
    }
}

void TableImplementation::addFilled(Cell const& name, std::span<Cell const* const> items) {
    Index added;
    added.reserve(items.size() + 1);
    added.push_back(name);
    for (Cell const* const item : items) {
        added.push_back(*item);
    }
    indices_.push_back(std::move(added));
}

} // namespace QX
