#pragma once

#include "table/model/columns.h"

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace QX {

class Name;

/// Finds the indices of one body by their names: one by one, until they have been looked through so often
/// that to file them all is cheaper.
///
/// A name may change through a reference to item 0 of an index, of which nobody tells. So it is noted to
/// which indices there may be such references; these are looked at each time. References end when the
/// table grows by an index. With too many of them names are looked at one by one again.
///
/// Looking up is safe in several threads at once as long as no one writes.
class IndexNames {
public:
    /// So many indices are looked through sooner than filed.
    static constexpr std::size_t few = 32;

    IndexNames() = default;
    IndexNames(IndexNames const&) = delete;
    IndexNames& operator=(IndexNames const&) = delete;
    ~IndexNames() { forget(); }

    /// The first index whose name equals `name`, or Table::npos.
    std::size_t find(Columns const& columns, Name const& name) const;

    /// Notes that the last index has been added, so that references to others have ended.
    void added(Columns const& columns) {
        if (columns.size() > few) {
            noteAdded(columns);
        }
    }
    /// Notes that the name of an index is about to change, or may from now on.
    void expose(Columns const& columns, std::size_t i) {
        if (columns.size() > few) {
            noteExposed(columns, i);
        }
    }
    /// Forgets all names, of indices that are about to change in any way.
    void forget() noexcept;

private:
    struct Filed;

    // Either the address of what is filed, or an odd number: one exposed index, as in `exposedOf`, and
    // the steps that looking names up has taken.
    using State = std::uint64_t;

    static State unfiled(std::uint64_t exposed, std::uint64_t steps) {
        return steps << 32U | exposed << 1U | 1U;
    }
    static std::uint64_t exposedOf(State state) { return (state & 0xFFFFFFFFU) >> 1U; }
    static std::uint64_t stepsOf(State state) { return state >> 32U; }
    static Filed* filedOf(State state);

    void noteAdded(Columns const& columns);
    void noteExposed(Columns const& columns, std::size_t i);
    std::size_t findUnfiled(Columns const& columns, Name const& name, State state) const;
    void file(Columns const& columns, State state) const;

    mutable std::atomic<State> state_{unfiled(0, 0)};
};

} // namespace QX
