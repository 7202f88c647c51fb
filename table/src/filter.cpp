#include "table/src/rowmatch.h"
#include "table/src/tableimpl.h"

namespace QX {

Status TableImplementation::filter(TableImplementation const& operand, Ptr<Table>& result,
                                   bool keepEmpty, bool exclude) const {
    Status status;
    TableImplementation const* input = this;
    Ptr<TableImplementation> held; // the former step's table, whose handle the next step re-points
    for (std::size_t k = 0; k < operand.indices(); ++k) {
        if (input == nullptr) {
            return status; // the first step failed and there is no table to go on with
        }
        status = input->filterStep(operand, k, result, keepEmpty, exclude);
        held = result ? result->heldBody() : Ptr<TableImplementation>();
        input = held.get();
    }
    return status;
}

Status TableImplementation::filterStep(TableImplementation const& conditions, std::size_t k,
                                       Ptr<Table>& result, bool keepEmpty, bool exclude) const {
    Str name;
    Status status = conditions.get(k, 0).get(name, 0);
    std::size_t const tested = findIndex(Cell(name));
    std::size_t const height = items();
    Rows rows;
    bool walked = false;
    if (exclude) {
        ExcludedTexts const excluded(conditions, k, keepEmpty);
        for (std::size_t j = 1; j < height; ++j) {
            if (tested == npos || excluded.passes(get(tested, j))) {
                rows.push_back(j);
            }
        }
        walked = height > 1;
    } else if (tested != npos) {
        rows = rowsOfValues(column(tested), conditions.column(k));
        walked = conditions.items() > 1;
    }
    if (walked) {
        status.clear(); // a walk makes good for a name without text
    }
    if (status.ok()) {
        result = pickRows(name_, columns(), rows);
    }
    return status;
}

} // namespace QX
