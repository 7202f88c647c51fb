#include "table/paths/firstvalue.h"

#include "memory/blocks.h"
#include "table/model/bodies.h"
#include "table/model/name.h"

#include <cstddef>
#include <set>
#include <utility>

namespace QX {

namespace {

/// A step being applied to one table: the items of the named index that are still to be looked at.
struct Visit {
    TableImplementation const* table;
    std::size_t index;
    std::size_t item;
    std::size_t end;
    bool shared; // the table may be met again

    Visit(TableImplementation const& of, PathStep const& step, bool isShared)
        : table(&of), index(of.findIndex(Name(step.name))), item(step.item), end(step.item + 1),
          shared(isShared) {
        if (step.item == Table::npos) {
            item = 1;
            end = of.items();
        }
    }
};

} // namespace

Cell const* firstValue(TableImplementation const& root, std::span<PathStep const> steps) {
    BlockVector<Visit> path;
    path.emplace_back(root, steps.front(), false);
    // Tables that lead nowhere from a step on, since a table can be reached along 2^depth ways.
    std::set<std::pair<TableImplementation const*, std::size_t>> barren;
    while (!path.empty()) {
        Visit& visit = path.back();
        if (visit.item >= visit.end) {
            if (visit.shared) {
                barren.emplace(visit.table, path.size() - 1);
            }
            path.pop_back();
            continue;
        }
        Cell const& cell = visit.table->get(visit.index, visit.item++);
        if (path.size() == steps.size()) {
            return &cell;
        }
        if (cell.isA() == Cell::TableCell && !barren.contains({&nestedBody(cell), path.size()})) {
            path.emplace_back(nestedBody(cell), steps[path.size()], isSharedTable(cell));
        }
    }
    return nullptr;
}

} // namespace QX
