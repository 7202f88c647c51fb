#include "table/src/namelookup.h"
#include "table/src/roworder.h"
#include "table/src/tableimpl.h"

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

Status TableImplementation::sort(TableImplementation const& operand, Ptr<Table>& result,
                                 bool ascending) const {
    Status status("Sort key not found", Status::Error, -1);
    std::vector<Cell> const keys = sortKeys(operand);
    NameLookup lookup(*this);
    std::size_t const height = items();
    std::vector<Column> columns;
    for (std::size_t k = keys.size(); k-- > 0;) {
        Str name;
        if (!keys[k].get(name, 0).ok()) {
            continue;
        }
        std::size_t const key = name.empty() ? npos : lookup.find(Cell(name));
        if (key == npos) {
            status = Status("Key not found", Status::Error, -1);
            break; // after sorting by the keys behind it
        }
        columns.push_back(column(key, height));
        status = Status();
    }
    if (!columns.empty()) {
        std::reverse(columns.begin(), columns.end()); // the most significant key first
        Rows rows(height > 1 ? height - 1 : 0);
        std::iota(rows.begin(), rows.end(), std::size_t{1});
        result = pickRows(name_, this->columns(), ordered(columns, std::move(rows), ascending));
    }
    return status;
}

} // namespace QX
