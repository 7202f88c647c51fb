#include "table/src/tableimpl.h"

#include <algorithm>

namespace QX {

Status TableImplementation::transpose(Ptr<Table>& result) const {
    constexpr std::size_t few = 64; // indices, whose cells stay in the cache while all rows take theirs
    Ptr<Table> const table = makePtr<Table>(name_);
    std::size_t const width = items();
    Indices& turned = made(table).indices_;
    turned.resize(width);
    for (std::size_t begin = 0; begin < indices(); begin += few) {
        std::size_t const end = std::min(begin + few, indices());
        for (std::size_t j = 0; j < width; ++j) {
            Index& row = turned[j];
            row.reserve(indices());
            for (std::size_t i = begin; i < end; ++i) {
                row.push_back(get(i, j));
            }
        }
    }
    result = table;
    return Status();
}

} // namespace QX
