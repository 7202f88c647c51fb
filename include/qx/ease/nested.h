#pragma once

#include "qx/ease/names.h"
#include "qx/table.h"

#include <cstddef>
#include <iterator>
#include <vector>

namespace QX {
inline namespace Ease {

/// A nested table and where it was found.
struct NestedTable {
    Ptr<Table> table;      ///< shared
    std::size_t depth = 0; ///< 1 for the tables in the cells of the outermost table
    std::size_t index = 0; ///< the cell of the table around it that holds it
    std::size_t item = 0;  ///< its item
};

} // namespace Ease

namespace Detail {

/// Walks the nested tables of a table, depth first; a forward iterator.
class NestedIterator {
public:
    using value_type = NestedTable;
    using reference = NestedTable;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using iterator_category = std::input_iterator_tag;
    using iterator_concept = std::forward_iterator_tag;

    NestedIterator() = default;
    explicit NestedIterator(Table const& table) {
        enter(table);
        goOn();
    }

    NestedTable operator*() const {
        Place const& place = path_.back();
        NestedTable found{nullptr, path_.size(), place.index, place.item};
        (void)place.table->get(place.index, place.item).get(found.table);
        return found;
    }
    NestedIterator& operator++() {
        NestedTable const found = **this;
        enter(*found.table);
        goOn();
        return *this;
    }
    NestedIterator operator++(int) {
        NestedIterator before(*this);
        ++*this;
        return before;
    }
    friend bool operator==(NestedIterator const& left, NestedIterator const& right) {
        return left.path_ == right.path_;
    }
    friend bool operator!=(NestedIterator const& left, NestedIterator const& right) {
        return !(left == right);
    }

private:
    /// A table on the way down, and where in it the walk is.
    struct Place {
        Table const* table;
        std::size_t index;
        std::size_t item;
        bool operator==(Place const& other) const {
            return table == other.table && index == other.index && item == other.item;
        }
    };

    /// Two tables of one body have their name in common.
    static void const* bodyOf(Table const& table) { return &table.name(); }

    /// Goes down into a table. A walk that has no end goes round in circles at some depth: it is enough
    /// to look out for the table at the last depth that is a power of two.
    void enter(Table const& table) {
        std::size_t depth = 1;
        while (2 * depth <= path_.size()) {
            depth *= 2;
        }
        if (!path_.empty() && bodyOf(*path_[depth - 1].table) == bodyOf(table)) {
            throw Failure("Table contains itself");
        }
        path_.push_back({&table, 0, Table::npos});
    }
    /// Goes to the next cell that holds a table, up where there are no more.
    void goOn() {
        while (!path_.empty() && !findTable(path_.back())) {
            path_.pop_back();
        }
    }
    static bool findTable(Place& place) {
        std::size_t const items = place.table->items(0);
        for (; place.index < place.table->indices(); ++place.index, place.item = Table::npos) {
            while (++place.item < items) { // npos + 1 is 0
                if (place.table->get(place.index, place.item).isA() == Cell::TableCell) {
                    return true;
                }
            }
        }
        return false;
    }

    std::vector<Place> path_;
};

} // namespace Detail

inline namespace Ease {

/// The nested tables of a table, at any depth.
class NestedTables {
public:
    /// Those of a table, which must outlive this object unless it is given by handle.
    explicit NestedTables(TableArgument const& table) : table_(table) {}

    /// The first nested table.
    Detail::NestedIterator begin() const { return Detail::NestedIterator(*table_); }
    /// Behind the last one.
    Detail::NestedIterator end() const { return {}; }

private:
    TableArgument table_;
};

/// The tables nested in a table, each before those nested in it, index by index and item by item:
/// `for (NestedTable const& found : nestedTables(table))`. Attributes are not walked.
///
/// A table that is held twice is visited twice. Changes to tables that the walk has not finished may be
/// met or not. The walk raises Failure "Table contains itself" where a table lies within itself, which
/// may by then have been visited again. The
/// range is valid as long as the table; one made from a handle holds the table itself.
///
/// Cost: linear in the cells; a step takes memory linear in the depth only when an iterator is copied.
inline NestedTables nestedTables(TableArgument const& table) {
    return NestedTables(table);
}
NestedTables nestedTables(Table const&& table) = delete;

} // namespace Ease
} // namespace QX
