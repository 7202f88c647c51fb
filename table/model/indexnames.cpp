#include "table/model/indexnames.h"

#include "memory/fastpaths.h"
#include "qx/table.h"
#include "table/model/name.h"
#include "table/model/nameindex.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <vector>

namespace QX {

namespace {

constexpr std::size_t mostExposed = 32;

// How an unfiled state tells which index is exposed: none, one by its number + 1, or many.
constexpr std::uint64_t none = 0;
constexpr std::uint64_t many = std::numeric_limits<std::uint32_t>::max() >> 1U;

std::size_t findOneByOne(Columns const& columns, Name const& name) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!columns[i].empty() && name.matches(columns[i].front())) {
            return i;
        }
    }
    return Table::npos;
}

std::uint64_t markOf(std::size_t i) {
    return i + 1 < many ? i + 1 : many;
}

} // namespace

/// The names of a body's indices, and those to which there may be references.
struct IndexNames::Filed {
    struct Exposed {
        std::size_t i;
        bool isFiled;
        Cell name; // under which it is filed
    };

    NameIndex names;
    std::vector<Exposed> exposed;
    bool many = false; // more are exposed than `exposed` tells

    bool isExposed(std::size_t i) const {
        return std::any_of(exposed.begin(), exposed.end(), [&](Exposed const& e) { return e.i == i; });
    }
    void expose(Columns const& columns, std::size_t i, bool isFiled) {
        if (many || isExposed(i)) {
            return;
        }
        if (exposed.size() == mostExposed) {
            many = true;
            return;
        }
        exposed.push_back({i, isFiled, isFiled ? columns[i].front() : Cell()});
    }
    /// Files the exposed indices under the names that they have now.
    void settle(Columns const& columns) {
        for (Exposed const& each : exposed) {
            if (each.isFiled) {
                names.remove(each.i, each.name);
            }
            if (!columns[each.i].empty()) {
                names.add(each.i, columns[each.i].front());
            }
        }
        exposed.clear();
    }
    std::size_t find(Columns const& columns, Name const& name) const {
        if (many) {
            return findOneByOne(columns, name);
        }
        std::size_t first = names.find(name, [&](std::size_t i) { return isExposed(i); });
        for (Exposed const& each : exposed) {
            Column const& column = columns[each.i];
            if (each.i < first && !column.empty() && name.matches(column.front())) {
                first = each.i;
            }
        }
        return first;
    }
};

IndexNames::Filed* IndexNames::filedOf(State state) {
    bool const isFiled = (state & 1U) == 0;
    return isFiled ? reinterpret_cast<Filed*>(static_cast<std::uintptr_t>(state)) // NOLINT
                   : nullptr;
}

std::size_t IndexNames::find(Columns const& columns, Name const& name) const {
    if (!fastPaths || columns.size() <= few) {
        return findOneByOne(columns, name);
    }
    State const state = state_.load(std::memory_order_acquire);
    Filed const* const filed = filedOf(state);
    return filed != nullptr ? filed->find(columns, name) : findUnfiled(columns, name, state);
}

std::size_t IndexNames::findUnfiled(Columns const& columns, Name const& name, State state) const {
    constexpr std::uint64_t worth = 32; // to file a name takes as long as to look at so many
    std::size_t const first = findOneByOne(columns, name);
    if (exposedOf(state) == many) {
        return first;
    }
    std::uint64_t const steps = stepsOf(state) + std::min(first, columns.size());
    if (steps >= worth * columns.size()) {
        file(columns, state);
    } else {
        state_.compare_exchange_strong(state, unfiled(exposedOf(state), steps),
                                       std::memory_order_acq_rel);
    }
    return first;
}

void IndexNames::file(Columns const& columns, State state) const {
    try {
        auto filed = std::make_unique<Filed>();
        std::uint64_t const exposed = exposedOf(state);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (exposed == markOf(i)) {
                filed->expose(columns, i, false);
            } else if (!columns[i].empty()) {
                filed->names.add(i, columns[i].front());
            }
        }
        auto const address = static_cast<State>(reinterpret_cast<std::uintptr_t>(filed.get()));
        if (state_.compare_exchange_strong(state, address, std::memory_order_acq_rel)) {
            (void)filed.release(); // otherwise another thread has been faster
        }
    } catch (std::bad_alloc const&) {
        // One by one will do.
    }
}

void IndexNames::noteAdded(Columns const& columns) {
    State const state = state_.load(std::memory_order_relaxed);
    std::size_t const last = columns.size() - 1;
    Filed* const filed = filedOf(state);
    if (filed != nullptr && !filed->many) {
        try {
            filed->settle(columns);
            filed->expose(columns, last, false);
            return;
        } catch (std::bad_alloc const&) {
            forget(); // what is filed may be incomplete
        }
    }
    std::uint64_t const steps = filed != nullptr ? 0 : stepsOf(state);
    forget();
    state_.store(unfiled(markOf(last), steps), std::memory_order_relaxed);
}

void IndexNames::noteExposed(Columns const& columns, std::size_t i) {
    State const state = state_.load(std::memory_order_relaxed);
    if (Filed* const filed = filedOf(state)) {
        filed->expose(columns, i, !columns[i].empty());
        return;
    }
    std::uint64_t const exposed = exposedOf(state);
    if (exposed != markOf(i)) {
        state_.store(unfiled(exposed == none ? markOf(i) : many, stepsOf(state)),
                     std::memory_order_relaxed);
    }
}

void IndexNames::forget() noexcept {
    State const state = state_.load(std::memory_order_relaxed);
    if (Filed* const filed = filedOf(state)) {
        delete filed;
        state_.store(unfiled(none, 0), std::memory_order_relaxed);
    }
}

} // namespace QX
