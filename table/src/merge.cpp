#include "table/src/namelookup.h"
#include "table/src/tableimpl.h"

#include <algorithm>

namespace QX {

Status TableImplementation::merge(TableImplementation const& operand, Ptr<Table>& result,
                                  bool byName) const {
    Ptr<Table> const table = makePtr<Table>(name_ + " and " + operand.name_);
    result = table;
    TableImplementation& merged = made(table);
    copyRectangle(merged);
    NameLookup lookup(merged);
    std::size_t const width = operand.items();
    for (std::size_t k = 0; k < operand.indices() && width > 0; ++k) {
        std::size_t const match = byName ? lookup.find(operand.get(k, 0)) : npos;
        std::size_t const target = match == npos ? merged.indices() : match;
        Cell const former = merged.get(target, 0);
        merged.at(target, width - 1);
        Index& index = merged.indices_[target];
        Index const& source = operand.indices_[k];
        std::copy(source.begin(), source.end(), index.begin());
        std::fill(index.begin() + static_cast<std::ptrdiff_t>(source.size()),
                  index.begin() + static_cast<std::ptrdiff_t>(width), Cell());
        lookup.renamed(target, former);
    }
    return Status();
}

Status TableImplementation::fill(TableImplementation const& operand, Ptr<Table>& result,
                                 int count) const {
    Status status;
    if (operand.items() < 2) {
        status << "Fill Table must contain two rows";
        return status;
    }
    int const length = std::max({count, static_cast<int>(items()), 1});
    TableImplementation filled(name_);
    filled.indices_.reserve(operand.indices());
    for (std::size_t k = 0; k < operand.indices(); ++k) {
        Index& index = filled.indices_.push_back(Index(static_cast<std::size_t>(length)));
        std::fill(index.begin(), index.end(), operand.get(k, 1));
        index.front() = operand.get(k, 0);
    }
    return merge(filled, result, true);
}

} // namespace QX
