#pragma once

#include "keys.h"

#include <vector>

namespace qxtab {

/// What is computed of the values that a column has in each group of rows.
struct Aggregate {
    char const* name;
    char const* help;
    bool keepsType; ///< whether it gives fields of the column, rather than numbers
    std::vector<QX::Cell> (*compute)(Data const& data, std::size_t column, RowGroups const& groups);
};

/// All of them: sum, mean, min, max, first, last and distinct.
std::vector<Aggregate> const& aggregates();
Aggregate const& aggregateNamed(std::string const& name);

/// All rows as one group, also when there are none.
RowGroups oneGroup(Data const& data);

} // namespace qxtab
