#pragma once

#include "qx/ease/failure.h"
#include "qx/ease/suggest.h"
#include "qx/rows.h"
#include "qx/table.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace QX {
inline namespace Ease {

/// The name of an index as an argument: any text.
class IndexName : public Str {
public:
    using Str::Str;
    /// Copies a text.
    IndexName(Str const& name) : Str(name) {}
    /// Copies a text.
    IndexName(std::string_view name) : Str(std::string(name)) {}
};

/// Names of indices as an argument: `"price"`, `{"price", "name"}` or a container of texts.
class Names {
public:
    /// Several names.
    Names(std::initializer_list<IndexName> names) : names_(names.begin(), names.end()) {}
    /// One name.
    template <typename Text, typename = std::enable_if_t<std::is_convertible_v<Text const&, IndexName>>>
    Names(Text const& name) : names_{IndexName(name)} {}
    /// The texts of a container.
    template <typename Container,
              typename = decltype(IndexName(*std::declval<Container const&>().begin())),
              typename = std::enable_if_t<!std::is_convertible_v<Container const&, IndexName>>, int = 0>
    Names(Container const& names) : names_(names.begin(), names.end()) {}

    /// The first name.
    std::vector<IndexName>::const_iterator begin() const { return names_.begin(); }
    /// Behind the last name.
    std::vector<IndexName>::const_iterator end() const { return names_.end(); }
    /// The number of names.
    std::size_t size() const { return names_.size(); }

private:
    std::vector<IndexName> names_;
};

/// A table as an argument that is only read: a Table or a handle to one.
class TableArgument {
public:
    /// Refers to a table, which must outlive what is made of it.
    TableArgument(Table const& table) : table_(&table) {}
    /// Shares the table of a handle. Raises Failure "No table provided" for a null one.
    template <typename T, typename = std::enable_if_t<std::is_convertible_v<T*, Table const*>>>
    TableArgument(Ptr<T> const& table) : table_(table.get()), handle_(table) {
        if (table.isNull()) {
            throw Failure("No table provided");
        }
    }

    /// The table.
    Table const& operator*() const { return *table_; }
    /// The table.
    Table const* operator->() const { return table_; }
    /// The handle that the table was given by, null for one given by reference.
    Ptr<Table const> const& handle() const { return handle_; }

private:
    Table const* table_;
    Ptr<Table const> handle_;
};

/// The number of the first index with this name, or Table::npos; names are matched as Table does it.
///
/// Cost: one comparison per index.
inline std::size_t findIndex(TableArgument const& table, IndexName const& name) {
    Cell const* const found = &table->get(name, 0);
    if (found != &table->get(Table::npos, 0)) {
        for (std::size_t i = 0; i < table->indices(); ++i) {
            if (&table->get(i, 0) == found) {
                return i;
            }
        }
    }
    return Table::npos;
}

/// The number of the first index with this name.
///
/// Raises Failure "No index 'prise' in 'prices', did you mean 'price'?", or with the names that there
/// are. Cost: one comparison per index.
inline std::size_t indexOf(TableArgument const& table, IndexName const& name) {
    std::size_t const index = findIndex(table, name);
    if (index == Table::npos) {
        throw Failure(Detail::unknownIndex(*table, name));
    }
    return index;
}

/// The numbers of indices by name, in the order of the names; raises as indexOf() does.
inline Positions indicesOf(TableArgument const& table, Names const& names) {
    Positions numbers;
    numbers.reserve(names.size());
    for (IndexName const& name : names) {
        numbers.push_back(indexOf(table, name));
    }
    return numbers;
}

} // namespace Ease

namespace Detail {

/// The number of data rows of a table.
inline std::size_t dataRows(Table const& table) {
    std::size_t const items = table.items(0);
    return items == 0 ? 0 : items - 1;
}

} // namespace Detail
} // namespace QX
