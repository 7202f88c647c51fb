#include "table/src/tableimpl.h"

namespace QX {

Status TableImplementation::transpose(Ptr<Table>& result) const {
    Ptr<Table> const table = makePtr<Table>(name_);
    std::vector<Index>& turned = made(table).indices_;
    std::size_t const width = items();
    turned.reserve(width);
    for (std::size_t j = 0; j < width; ++j) {
        Index& row = turned.emplace_back();
        row.reserve(indices());
        for (std::size_t i = 0; i < indices(); ++i) {
            row.push_back(get(i, j));
        }
    }
    result = table;
    return Status();
}

} // namespace QX
