#include "table/src/namelookup.h"

#include "base/fastpaths.h"
#include "cell/cellkeys.h"

#include <algorithm>

namespace QX {

std::size_t NameLookup::find(Cell const& name) {
    if (!fastPaths || table_.indices() <= few) {
        return table_.findIndex(name);
    }
    while (filed_ < table_.indices()) {
        file(filed_++);
    }
    std::size_t first = TableImplementation::npos;
    for (std::uint64_t const key : keysFor(name)) {
        auto const places = places_.find(key);
        if (places == places_.end()) {
            continue;
        }
        for (std::size_t const i : places->second) {
            if (i >= first) {
                break;
            }
            if (table_.get(i, 0).compare(name, false)) {
                first = i;
            }
        }
    }
    return first;
}

void NameLookup::renamed(std::size_t i, Cell const& former) {
    if (i >= filed_) {
        return;
    }
    CellKeys const formerKeys = keysOf(former);
    CellKeys const keys = keysOf(table_.get(i, 0));
    if (std::equal(keys.begin(), keys.end(), formerKeys.begin(), formerKeys.end())) {
        return;
    }
    for (std::uint64_t const key : formerKeys) {
        std::vector<std::size_t>& places = places_[key];
        places.erase(std::lower_bound(places.begin(), places.end(), i));
    }
    file(i);
}

void NameLookup::file(std::size_t i) {
    if (table_.length(i) == 0) {
        return; // an index without items has no name
    }
    for (std::uint64_t const key : keysOf(table_.get(i, 0))) {
        std::vector<std::size_t>& places = places_[key];
        places.insert(std::lower_bound(places.begin(), places.end(), i), i);
    }
}

} // namespace QX
