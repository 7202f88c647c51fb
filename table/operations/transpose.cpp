#include "base/makeptr.h"
#include "table/model/bodies.h"
#include "table/operations/operations.h"

#include <algorithm>

namespace QX {

Status Operations::transpose(TableImplementation const& table, Ptr<Table>& result) {
    constexpr std::size_t few = 64; // indices, whose cells stay in the cache while all rows take theirs
    Ptr<Table> const turned = makePtr<Table>(table.name());
    std::size_t const height = table.items();
    Columns& rows = madeBody(turned).columns();
    rows.resize(height);
    for (std::size_t begin = 0; begin < table.indices(); begin += few) {
        std::size_t const end = std::min(begin + few, table.indices());
        for (std::size_t j = 0; j < height; ++j) {
            Column& row = rows[j];
            row.reserve(table.indices());
            for (std::size_t i = begin; i < end; ++i) {
                row.push_back(table.get(i, j));
            }
        }
    }
    result = turned;
    return Status();
}

} // namespace QX
