#include "table/src/tableimpl.h"

#include <utility>

namespace QX {

namespace {

Cell copyOf(Cell const& cell) {
    return cell.isA() == Cell::TableCell ? Cell(tableOf(cell)->clone()) : cell;
}

} // namespace

Ptr<Table> TableImplementation::clone() const {
    Ptr<Table> copy = makePtr<Table>(name_);
    std::size_t const width = items();
    if (width == 0) {
        return copy;
    }
    std::vector<Index>& copies = copy->data_->indices_;
    copies.reserve(indices_.size());
    for (Index const& index : indices_) {
        Index& cells = copies.emplace_back();
        cells.reserve(width);
        for (Cell const& cell : index) {
            cells.push_back(copyOf(cell));
        }
        cells.resize(width);
    }
    return copy;
}

} // namespace QX
