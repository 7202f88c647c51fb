#pragma once

#include "base/makeptr.h"
#include "base/strview.h"
#include "memory/blocks.h"
#include "table/model/bodies.h"
#include "table/model/name.h"
#include "table/model/raise.h"
#include "table/paths/pathstep.h"
#include "table/paths/undolog.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <unordered_set>

namespace QX {

/// How a walk reads: by mere addresses, since nothing changes meanwhile.
class Reading {
public:
    using Value = Cell const*;
    using Place = TableImplementation const*;

    static Place tableIn(Value value) {
        Table const* const table = nestedIn(*value);
        return table == nullptr ? nullptr : &bodyOf(*table);
    }
    static std::size_t indexOf(Place table, PathStep const& /*step*/, Name const& name) {
        return table->findIndex(name);
    }
    static Cell const& cellOf(Value value) { return *value; }
    static std::size_t itemsOf(Place table) { return table->items(); }
    static Value at(Place table, std::size_t i, std::size_t k) { return &table->get(i, k); }
};

/// How a walk makes the indices and items that it lacks. It shares the bodies of the cells that it has
/// reached, since the cells move when their table grows.
class Growing {
public:
    using Value = Cell;
    using Place = UndoLog::Body const*;

    explicit Growing(UndoLog& undo) : undo_(undo) {}

    Place tableIn(Value const& value) const {
        Ptr<Table> const* const table = handleIn(value);
        return table == nullptr ? nullptr : &undo_.dataOf(*table);
    }
    /// The named index, added with a new table in item 1 where there is none.
    std::size_t indexOf(Place table, PathStep const& step, Name const& name) const {
        std::size_t const index = (*table)->findIndex(name);
        if (index != Table::npos) {
            return index;
        }
        Cell const nested(makePtr<Table>(toStr(step.name)));
        std::size_t const item = step.item == Table::npos ? 1 : step.item;
        undo_.addSized(*table, name.cell(), std::max<std::size_t>(item, 1) + 1)[1] = nested;
        return (*table)->indices() - 1;
    }
    static Cell const& cellOf(Value const& value) { return value; }
    static std::size_t itemsOf(Place table) { return (*table)->items(); }
    Value const& at(Place table, std::size_t i, std::size_t k) const { return undo_.at(*table, i, k); }

private:
    UndoLog& undo_;
};

/// Follows a path from one table: each step is applied to every table that the step before has reached.
template <typename Access>
class Walk {
public:
    using Value = typename Access::Value;
    using Place = typename Access::Place;

    explicit Walk(Place root, Access const& access = Access()) : root_(root), access_(access) {}

    /// Takes steps, at least one; returns the values that the last one reaches.
    BlockVector<Value> const& follow(std::span<PathStep const> steps) {
        takeFrom(root_, steps.front());
        for (PathStep const& step : steps.subspan(1)) {
            reached_.swap(values_);
            requireFewRepeats();
            values_.clear();
            values_.reserve(reached_.size());
            for (Value const& value : reached_) {
                if (Place const table = access_.tableIn(value)) {
                    takeFrom(table, step);
                }
            }
        }
        return values_;
    }

private:
    /// Takes one item of the named index or, for a step without a number, every item but the name, as
    /// many as the table's longest index has.
    void takeFrom(Place table, PathStep const& step) {
        Name const name(step.name);
        std::size_t const index = access_.indexOf(table, step, name);
        bool const all = step.item == Table::npos;
        std::size_t const end = all ? Access::itemsOf(table) : step.item + 1;
        for (std::size_t k = all ? 1 : step.item; k < end; ++k) {
            values_.push_back(access_.at(table, index, k));
        }
    }

    /// Raises when the tables that a step has reached repeat each other too often.
    void requireFewRepeats() const {
        if (reached_.size() <= Table::repeatLimit()) {
            return;
        }
        std::unordered_set<Table const*> met;
        std::size_t repeats = 0;
        for (Value const& value : reached_) {
            Table const* const table = nestedIn(Access::cellOf(value));
            repeats += table != nullptr && !met.insert(table).second ? 1 : 0;
        }
        if (repeats > Table::repeatLimit()) {
            raise("Nested tables repeat too often");
        }
    }

    Place root_;
    Access access_;
    BlockVector<Value> values_;
    BlockVector<Value> reached_; // by the step before
};

} // namespace QX
