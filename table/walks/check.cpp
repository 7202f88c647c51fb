#include "table/model/bodies.h"
#include "table/walks/walks.h"

#include <unordered_map>
#include <vector>

namespace QX {

bool Walks::check(TableImplementation const& root) {
    struct Visit {
        TableImplementation const* body;
        std::size_t i;
        std::size_t j;
    };
    std::vector<Visit> path{{&root, 0, 0}};
    // The depth at which each body was met first. A body met again no deeper than then need not be
    // walked again: its whole walk succeeded, and would now do so at depths no larger.
    std::unordered_map<TableImplementation const*, std::size_t> depths{{&root, 0}};
    while (!path.empty()) {
        Visit& visit = path.back();
        if (visit.i == visit.body->indices()) {
            path.pop_back();
            continue;
        }
        Column const& column = visit.body->columns()[visit.i];
        if (visit.j == column.size()) {
            ++visit.i;
            visit.j = 0;
            continue;
        }
        Cell const& cell = column[visit.j++];
        Table const* const table = nestedIn(cell);
        TableImplementation const* const nested =
            table == nullptr ? nullptr : TableBodies::data(*table).get();
        if (nested == nullptr) {
            continue;
        }
        auto const [met, first] = depths.emplace(nested, path.size());
        if (first) {
            path.push_back({nested, 0, 0});
        } else if (met->second < path.size()) {
            return false;
        }
    }
    return true;
}

} // namespace QX
