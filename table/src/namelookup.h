#pragma once

#include "qx/cell.h"
#include "table/src/tableimpl.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace QX {

/// Finds indices of one table by many names, each in constant time, with the answers of findIndex().
///
/// The table may gain named indices while the lookup is in use.
class NameLookup {
public:
    /// So many names are compared sooner than filed.
    static constexpr std::size_t few = 16;

    /// Looks in `table`, which must outlive the lookup.
    explicit NameLookup(TableImplementation const& table) : table_(table) {}

    /// The first index whose name equals `name`, or npos.
    std::size_t find(Cell const& name);
    /// Takes note that the name of index i has changed from `former`.
    void renamed(std::size_t i, Cell const& former);

private:
    void file(std::size_t i);

    TableImplementation const& table_;
    std::unordered_map<std::uint64_t, std::vector<std::size_t>>
        places_;            // key of a name: ascending indices
    std::size_t filed_ = 0; // the indices below are in places_
};

} // namespace QX
