#include "base/makeptr.h"
#include "table/model/bodies.h"
#include "table/model/namelookup.h"
#include "table/operations/operations.h"

#include <algorithm>

namespace QX {

Status Operations::merge(TableImplementation const& table, TableImplementation const& operand,
                         Ptr<Table>& result, bool byName) {
    Ptr<Table> const made = makePtr<Table>(table.name() + " and " + operand.name());
    result = made;
    TableImplementation& merged = madeBody(made);
    merged.addRectangle(table);
    NameLookup lookup(merged);
    std::size_t const height = operand.items();
    for (std::size_t k = 0; k < operand.indices() && height > 0; ++k) {
        std::size_t const match = byName ? lookup.find(operand.get(k, 0)) : Table::npos;
        std::size_t const target = match == Table::npos ? merged.indices() : match;
        Cell const former = merged.get(target, 0);
        merged.reach(target, height - 1);
        Column& column = merged.columns()[target];
        Column const& source = operand.columns()[k];
        std::copy(source.begin(), source.end(), column.begin());
        std::fill(column.begin() + source.size(), column.begin() + height, Cell());
        lookup.renamed(target, former);
    }
    return Status();
}

Status Operations::fill(TableImplementation const& table, TableImplementation const& operand,
                        Ptr<Table>& result, int count) {
    Status status;
    if (operand.items() < 2) {
        status << "Fill Table must contain two rows";
        return status;
    }
    int const length = std::max({count, static_cast<int>(table.items()), 1});
    TableImplementation filled(table.name());
    filled.columns().reserve(operand.indices());
    for (std::size_t k = 0; k < operand.indices(); ++k) {
        Column& column = filled.addSized(operand.get(k, 0), static_cast<std::size_t>(length));
        std::fill(column.begin() + 1, column.end(), operand.get(k, 1));
    }
    return merge(table, filled, result, true);
}

} // namespace QX
