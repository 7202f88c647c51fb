#include "table/src/tableimpl.h"

#include <unordered_map>

namespace QX {

bool TableImplementation::check() const {
    struct Visit {
        TableImplementation const* body;
        std::size_t i;
        std::size_t j;
    };
    std::vector<Visit> path{{this, 0, 0}};
    // The depth at which each body was met first. A body met again no deeper than then need not be
    // walked again: its whole walk succeeded, and would now do so at depths no larger.
    std::unordered_map<TableImplementation const*, std::size_t> depths{{this, 0}};
    while (!path.empty()) {
        Visit& visit = path.back();
        if (visit.i == visit.body->indices_.size()) {
            path.pop_back();
            continue;
        }
        Index const& index = visit.body->indices_[visit.i];
        if (visit.j == index.size()) {
            ++visit.i;
            visit.j = 0;
            continue;
        }
        Cell const& cell = index[visit.j++];
        if (cell.isA() != Cell::TableCell) {
            continue;
        }
        TableImplementation const* const nested = tableOf(cell)->data_.get();
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
