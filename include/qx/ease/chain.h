#pragma once

#include "qx/ease/combine.h"
#include "qx/ease/group.h"
#include "qx/ease/indexverbs.h"
#include "qx/ease/join.h"
#include "qx/ease/rowverbs.h"

#include <cstddef>
#include <initializer_list>

namespace QX {
inline namespace Ease {

/// A table with the operations as members, to be written in the order in which they are done:
///
///     Ptr<Table> const largest = from(moons).where("kind", "planet").sorted(descending("moons")).head(3);
///
/// Each member does what the function of its name does and gives a new chain; copying one shares the
/// table. A chain converts to the handle of its table.
class Chain {
public:
    /// Begins with a table, shared.
    explicit Chain(Ptr<Table> const& table) : table_(table) {}

    /// The table so far.
    Ptr<Table> const& table() const { return table_; }
    /// The table so far.
    operator Ptr<Table> const&() const { return table_; }
    /// The table so far.
    Table* operator->() const { return table_.get(); }

    /// As where() does.
    Chain where(IndexName const& name, Values const& values) const {
        return Chain(Ease::where(table_, name, values));
    }
    /// As where() does.
    template <typename Wanted>
    auto where(Wanted const& wanted) const -> decltype(Chain(Ease::where(Ptr<Table>(), wanted))) {
        return Chain(Ease::where(table_, wanted));
    }
    /// As whereNot() does.
    Chain whereNot(IndexName const& name, Values const& values) const {
        return Chain(Ease::whereNot(table_, name, values));
    }
    /// As sorted() does.
    Chain sorted(std::initializer_list<SortKey> keys) const { return Chain(Ease::sorted(table_, keys)); }
    /// As sorted() does.
    Chain sorted(SortKey const& key) const { return Chain(Ease::sorted(table_, key)); }
    /// As distinct() does.
    Chain distinct() const { return Chain(Ease::distinct(table_)); }
    /// As distinct() does.
    Chain distinct(Names const& names) const { return Chain(Ease::distinct(table_, names)); }
    /// As without() does.
    Chain without(Positions const& rows) const { return Chain(Ease::without(table_, rows)); }
    /// As head() does.
    Chain head(std::size_t count = 5) const { return Chain(Ease::head(table_, count)); }
    /// As tail() does.
    Chain tail(std::size_t count = 5) const { return Chain(Ease::tail(table_, count)); }

    /// As selected() does.
    Chain selected(Names const& names) const { return Chain(Ease::selected(table_, names)); }
    /// As withoutIndices() does.
    Chain withoutIndices(Names const& names) const { return Chain(Ease::withoutIndices(table_, names)); }
    /// As renamed() does.
    Chain renamed(std::initializer_list<Renaming> names) const {
        return Chain(Ease::renamed(table_, names));
    }
    /// As withIndex() does.
    Chain withIndex(IndexName const& name, Values const& values) const {
        return Chain(Ease::withIndex(table_, name, values));
    }
    /// As withIndex() does.
    template <typename Function>
    auto withIndex(IndexName const& name, Function const& function) const
        -> decltype(Chain(Ease::withIndex(Ptr<Table>(), name, function))) {
        return Chain(Ease::withIndex(table_, name, function));
    }

    /// As grouped() does.
    Chain grouped(Names const& keys, std::initializer_list<Aggregate> aggregates) const {
        return Chain(Ease::grouped(table_, keys, aggregates));
    }
    /// As joined() does.
    Chain joined(TableArgument const& right, Names const& keys, Join kind = Join::Inner) const {
        return Chain(Ease::joined(table_, right, keys, kind));
    }
    /// As joined() does.
    Chain joined(TableArgument const& right, Names const& leftKeys, Names const& rightKeys,
                 Join kind = Join::Inner) const {
        return Chain(Ease::joined(table_, right, leftKeys, rightKeys, kind));
    }
    /// As merged() does.
    Chain merged(TableArgument const& other) const { return Chain(Ease::merged(table_, other)); }
    /// As appended() does.
    Chain appended(TableArgument const& other) const { return Chain(Ease::appended(table_, other)); }
    /// As overlaid() does.
    Chain overlaid(TableArgument const& other) const { return Chain(Ease::overlaid(table_, other)); }
    /// As transposed() does.
    Chain transposed() const { return Chain(Ease::transposed(table_)); }

private:
    Ptr<Table> table_;
};

/// Begins a chain with a table, which is shared and stays as it is.
inline Chain from(Ptr<Table> const& table) {
    return Chain(table);
}
/// The same for a table given by reference, of which the chain holds a copy that shares its bodies.
inline Chain from(Table const& table) {
    return Chain(Ptr<Table>(new Table(table)));
}

} // namespace Ease
} // namespace QX
