#pragma once

#include "memory/fastpaths.h"
#include "table/model/nameindex.h"
#include "table/model/tableimpl.h"

#include <cstddef>

namespace QX {

/// Finds indices of one table by many names, with the answers of findIndex().
///
/// The table may gain named indices while the lookup is in use.
class NameLookup {
public:
    /// So many names are compared sooner than filed.
    static constexpr std::size_t few = 16;

    /// Looks in `table`, which must outlive the lookup.
    explicit NameLookup(TableImplementation const& table) : table_(table) {}

    /// The first index whose name equals `name`, or npos.
    std::size_t find(Cell const& name) {
        if (!fastPaths || table_.indices() <= few) {
            return table_.findIndex(name);
        }
        for (; filed_ < table_.indices(); ++filed_) {
            if (!table_.columns()[filed_].empty()) { // an index without items has no name
                names_.add(filed_, table_.get(filed_, 0));
            }
        }
        return names_.find(Name(name), [](std::size_t) { return false; });
    }
    /// Takes note that the name of index i has changed from `former`.
    void renamed(std::size_t i, Cell const& former) {
        if (i < filed_) {
            names_.remove(i, former);
            names_.add(i, table_.get(i, 0));
        }
    }

private:
    TableImplementation const& table_;
    NameIndex names_;
    std::size_t filed_ = 0; // the indices below are in names_
};

} // namespace QX
