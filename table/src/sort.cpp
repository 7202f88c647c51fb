#include "table/src/namelookup.h"
#include "table/src/roworder.h"
#include "table/src/tableimpl.h"

#include <numeric>

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
    Rows rows(height > 1 ? height - 1 : 0);
    std::iota(rows.begin(), rows.end(), std::size_t{1});
    bool sorted = false;
    for (std::size_t k = keys.size(); k-- > 0;) {
        Str name;
        if (!keys[k].get(name, 0).ok()) {
            continue;
        }
        std::size_t const key = name.empty() ? npos : lookup.find(Cell(name));
        if (key == npos) {
            status = Status("Key not found", Status::Error, -1);
            break;
        }
        rows = ordered(column(key, height), rows, ascending);
        status = Status();
        sorted = true;
    }
    if (sorted) {
        result = pickRows(name_, rows);
    }
    return status;
}

} // namespace QX
