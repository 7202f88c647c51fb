#pragma once

#include "cell/view.h"
#include "table/model/raise.h"
#include "table/walks/repeats.h"

#include <array>
#include <bit>
#include <optional>
#include <utility>
#include <vector>

namespace QX {

/// The bodies that a walk of so many tables at once begins with.
template <std::size_t count>
using Roots = std::array<TableImplementation const*, count>;

/// The walks that are under way, each inside a table nested in the one before.
template <typename Walk>
using Descent = std::vector<Walk>;

/// Raises the failure of a descent that would never end.
[[noreturn]] inline void raiseEndless(int line = __builtin_LINE()) {
    raise("Table contains itself", line);
}

/// Walks a table and the tables nested in it, to any depth, without a call for each level.
///
/// `advance(descent)` goes on with the innermost walk and returns the walk of the next nested table, or
/// nothing at its end. `finish(descent, done)` then hands the walk that has ended to the one around it,
/// which is the innermost again. Returns the walk of the table itself, at its end.
///
/// Raises "Table contains itself" when the descent would never end. What a walk does is a function of
/// its key(), so an equal key on the way down is met then only. The keys along an endless descent come
/// to repeat with a period, which comparing each with the one at the last power of two finds within a
/// few rounds. Raises "Nested tables repeat too often" as Repeats does; root.roots() are the bodies that
/// the descent begins with.
template <typename Walk, typename Advance, typename Finish>
Walk walkNested(Walk root, Advance const& advance, Finish const& finish) {
    auto const roots = root.roots();
    Repeats repeats;
    Descent<Walk> descent;
    descent.reserve(4);
    descent.push_back(std::move(root));
    for (;;) {
        if (std::optional<Walk> nested = advance(descent)) {
            if (nested->key() == descent[std::bit_floor(descent.size()) - 1].key()) {
                raiseEndless();
            }
            repeats.add([&] { return countTableCells(roots); });
            descent.push_back(std::move(*nested));
            continue;
        }
        Walk done = std::move(descent.back());
        descent.pop_back();
        if (descent.empty()) {
            return done;
        }
        finish(descent, std::move(done));
    }
}

} // namespace QX
