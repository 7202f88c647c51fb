#include "table/model/bodies.h"
#include "table/model/name.h"
#include "table/model/namelookup.h"
#include "table/operations/operations.h"
#include "table/rows/gather.h"
#include "table/rows/roworder.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace QX {

namespace {

/// The keys of a sort, the most significant first: the cells of a row of one-item indices, otherwise
/// those of the first index.
std::vector<Cell> sortKeys(TableImplementation const& operand) {
    std::vector<Cell> keys;
    bool const asRow = operand.indices() > 1 && operand.items() == 1;
    std::size_t const count = asRow ? operand.indices() : operand.items();
    for (std::size_t k = 0; k < count; ++k) {
        keys.push_back(asRow ? operand.get(k, 0) : operand.get(0, k));
    }
    return keys;
}

} // namespace

Status Operations::sort(TableImplementation const& table, TableImplementation const& operand,
                        Ptr<Table>& result, bool ascending) {
    Status status("Sort key not found", Status::Error, -1);
    std::vector<Cell> const keys = sortKeys(operand);
    NameLookup lookup(table);
    std::size_t const height = table.items();
    std::vector<ColumnView> columns;
    for (std::size_t k = keys.size(); k-- > 0;) {
        Str name;
        if (!keys[k].get(name, 0).ok()) {
            continue;
        }
        std::size_t const key = name.empty() ? Table::npos : lookup.find(soughtName(keys[k], name));
        if (key == Table::npos) {
            status = Status("Key not found", Status::Error, -1);
            break; // after sorting by the keys behind it
        }
        columns.push_back(table.view(key, height));
        status = Status();
    }
    if (!columns.empty()) {
        std::reverse(columns.begin(), columns.end()); // the most significant key first
        Rows rows(height > 1 ? height - 1 : 0);
        std::iota(rows.begin(), rows.end(), std::size_t{1});
        result = pickRows(table.name(), table.views(), ordered(columns, std::move(rows), ascending));
    }
    return status;
}

} // namespace QX
