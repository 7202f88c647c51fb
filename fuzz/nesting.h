#pragma once

#include "cell/view.h"
#include "table/model/bodies.h"

#include <qx/qx.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace QX {

/// Walks a table and all that is nested in it, attributes included, along every path that leads there.
class Nesting {
public:
    /// Stops after so many cells. A table met inside itself is not entered again.
    explicit Nesting(std::size_t limit) : limit_(limit) {}

    /// The cells met, at most one more than the limit.
    std::size_t cells(Table const& table) {
        walk(table);
        return cells_;
    }

private:
    void walk(Table const& table) {
        TableImplementation const* const body = &bodyOf(table);
        if (std::find(path_.begin(), path_.end(), body) != path_.end()) {
            return;
        }
        path_.push_back(body);
        walkCells(table);
        walkCells(*table.getAttributes());
        path_.pop_back();
    }
    void walkCells(Table const& table) {
        TableImplementation const& body = bodyOf(table);
        for (std::size_t i = 0; i < body.indices(); ++i) {
            for (std::size_t j = 0; j < body.columns()[i].size(); ++j) {
                if (cells_ > limit_) {
                    return;
                }
                ++cells_;
                if (Table const* const nested = nestedIn(body.get(i, j))) {
                    walk(*nested);
                }
            }
        }
    }

    std::size_t limit_;
    std::size_t cells_ = 0;
    std::vector<TableImplementation const*> path_;
};

/// Whether a table has so many cells, counted along every path, that walking it takes long.
inline bool isVast(Table const& table) {
    constexpr std::size_t limit = 200;
    return Nesting(limit).cells(table) > limit;
}

} // namespace QX
