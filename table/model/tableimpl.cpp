#include "table/model/tableimpl.h"

#include "memory/immortal.h"
#include "table/model/name.h"

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
    for (Column const& column : columns_) {
        most = std::max(most, column.size());
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
    return names_.find(columns_, name);
}

std::size_t TableImplementation::findIndex(Cell const& name) const {
    return findIndex(Name(name));
}

std::size_t TableImplementation::addIndex(Str const& name) {
    addSized(Cell(name), 1);
    return columns_.size() - 1;
}

Cell& TableImplementation::addUpTo(std::size_t i, std::size_t j) {
    Column added(j + 1); // made first, so that nothing has grown if there is no memory for it
    columns_.resize(i + 1);
    columns_[i] = std::move(added);
    names_.added(columns_);
    return columns_[i][j];
}

Column& TableImplementation::addSized(Cell const& name, std::size_t items) {
    Column added(items);
    added.front() = name;
    addColumn(std::move(added));
    return columns_.back();
}

Column& TableImplementation::addReserved(std::size_t items) {
    Column added;
    added.reserve(items);
    addColumn(std::move(added));
    return columns_.back();
}

void TableImplementation::addCopy(ColumnView const& view) {
    Column& copy = addReserved(view.items());
    for (std::size_t j = 0; j < view.items(); ++j) {
        copy.push_back(view[j]);
    }
}

void TableImplementation::addRectangle(TableImplementation const& other) {
    std::size_t const height = other.items();
    if (height == 0) {
        return;
    }
    columns_.reserve(other.indices());
    for (std::size_t i = 0; i < other.indices(); ++i) {
        addCopy(other.view(i, height));
    }
}

std::vector<ColumnView> TableImplementation::views() const {
    std::size_t const height = items();
    std::vector<ColumnView> views;
    views.reserve(indices());
    for (std::size_t i = 0; i < indices(); ++i) {
        views.push_back(view(i, height));
    }
    return views;
}

} // namespace QX
