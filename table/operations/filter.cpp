#include "table/model/bodies.h"
#include "table/model/name.h"
#include "table/operations/operations.h"
#include "table/rows/excludedtexts.h"
#include "table/rows/gather.h"
#include "table/rows/rowmatch.h"

namespace QX {

namespace {

struct FilterFlags {
    bool keepEmpty;
    bool exclude;
};

/// Index k of `conditions`, applied to `table`.
Status filterStep(TableImplementation const& table, TableImplementation const& conditions, std::size_t k,
                  Ptr<Table>& result, FilterFlags flags) {
    Str name;
    Status status = conditions.get(k, 0).get(name, 0);
    std::size_t const tested = table.findIndex(soughtName(conditions.get(k, 0), name));
    std::size_t const height = table.items();
    Rows rows;
    bool walked = false;
    if (flags.exclude) {
        ExcludedTexts excluded(conditions.view(k), flags.keepEmpty);
        for (std::size_t j = 1; j < height; ++j) {
            if (tested == Table::npos || excluded.passes(table.get(tested, j))) {
                rows.push_back(j);
            }
        }
        walked = height > 1;
    } else if (tested != Table::npos) {
        rows = rowsOfValues(table.view(tested), conditions.view(k));
        walked = conditions.items() > 1;
    }
    if (walked) {
        status.clear(); // a walk makes good for a name without text
    }
    if (status.ok()) {
        result = pickRows(table.name(), table.views(), rows);
    }
    return status;
}

} // namespace

Status Operations::filter(TableImplementation const& table, TableImplementation const& operand,
                          Ptr<Table>& result, bool keepEmpty, bool exclude) {
    Status status;
    TableImplementation const* input = &table;
    Ptr<TableImplementation> held; // the former step's table, whose handle the next step re-points
    for (std::size_t k = 0; k < operand.indices(); ++k) {
        if (input == nullptr) {
            return status; // the first step failed and there is no table to go on with
        }
        status = filterStep(*input, operand, k, result, {keepEmpty, exclude});
        held = result ? heldBody(*result) : Ptr<TableImplementation>();
        input = held.get();
    }
    return status;
}

} // namespace QX
