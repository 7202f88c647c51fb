#include "base/blocks.h"
#include "base/strview.h"
#include "cell/cellvalue.h"
#include "qx/except.h"
#include "table/src/growth.h"
#include "table/src/name.h"
#include "table/src/pathstep.h"
#include "table/src/raise.h"
#include "table/src/tableimpl.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace QX {

namespace {

using Body = Growth::Body;

/// How a walk reads: by mere addresses, since nothing changes meanwhile.
class Reading {
public:
    using Value = Cell const*;
    using Place = TableImplementation const*;

    static Cell const* cellOf(Value value) { return value; }
    static Place tableIn(Value value) {
        Table const* const table = nestedIn(*value);
        return table == nullptr ? nullptr : &TableImplementation::of(*table);
    }
    static std::size_t indexOf(Place table, PathStep const& /*step*/, Name const& name) {
        return table->findIndex(name);
    }
    static std::size_t itemsOf(Place table) { return table->items(); }
    static Value at(Place table, std::size_t i, std::size_t k) { return &table->get(i, k); }
};

/// How a walk makes the indices and items that it lacks. It shares the bodies of the cells that it has
/// reached, since the cells move when their table grows.
class Growing {
public:
    using Value = Cell;
    using Place = Body const*;

    explicit Growing(Growth& growth) : growth_(growth) {}

    static Cell const* cellOf(Value const& value) { return &value; }
    Place tableIn(Value const& value) const {
        Ptr<Table> const* const table = handleIn(value);
        return table == nullptr ? nullptr : &growth_.bodyOf(*table);
    }
    /// The named index, added with a new table in item 1 where there is none.
    std::size_t indexOf(Place table, PathStep const& step, Name const& name) const {
        std::size_t const index = (*table)->findIndex(name);
        if (index != Table::npos) {
            return index;
        }
        Cell const nested(makePtr<Table>(toStr(step.name)));
        std::size_t const item = step.item == Table::npos ? 1 : step.item;
        growth_.addSized(*table, name.cell(), std::max<std::size_t>(item, 1) + 1)[1] = nested;
        return (*table)->indices() - 1;
    }
    static std::size_t itemsOf(Place table) { return (*table)->items(); }
    Value const& at(Place table, std::size_t i, std::size_t k) const { return growth_.at(*table, i, k); }

private:
    Growth& growth_;
};

/// Follows a path from one table: each step is applied to every table that the step before has reached.
template <typename Access>
class Walk {
public:
    using Value = typename Access::Value;
    using Place = typename Access::Place;

    explicit Walk(Place root, Access const& access = Access()) : root_(root), access_(access) {}

    /// Takes the steps of `path`, without the last if that is left to the caller. Stops at a step
    /// without a name or with a number that cannot be read.
    void follow(std::string_view path, char separator, bool leaveLast) {
        while (!path.empty()) {
            path = skipSeparators(path, separator);
            PathStep const step = takeStep(path, separator);
            if (step.name.empty() || (leaveLast && step.last)) {
                return;
            }
            take(step);
        }
    }

    /// True once a step has been taken.
    bool begun() const { return !name_.empty(); }
    /// The name of the last step taken.
    std::string_view name() const { return name_; }
    /// What the last step reached.
    BlockVector<Value> const& values() const { return values_; }
    /// The first cell that it reached; null when there is none.
    Cell const* first() const { return values_.empty() ? nullptr : Access::cellOf(values_.front()); }

private:
    void take(PathStep const& step) {
        Name const name(step.name);
        reached_.swap(values_);
        values_.clear();
        values_.reserve(reached_.size());
        if (!begun()) {
            takeFrom(root_, step, name);
        }
        name_ = step.name;
        for (Value const& value : reached_) {
            if (Place const table = access_.tableIn(value)) {
                takeFrom(table, step, name);
            }
        }
    }

    /// Takes one item of the named index or, for a step without a number, every item but the name, as
    /// many as the table's longest index has.
    void takeFrom(Place table, PathStep const& step, Name const& name) {
        std::size_t const index = access_.indexOf(table, step, name);
        bool const all = step.item == Table::npos;
        std::size_t const end = all ? Access::itemsOf(table) : step.item + 1;
        for (std::size_t k = all ? 1 : step.item; k < end; ++k) {
            values_.push_back(access_.at(table, index, k));
        }
    }

    Place root_;
    Access access_;
    std::string_view name_;
    BlockVector<Value> values_;
    BlockVector<Value> reached_; // by the step before
};

/// The table that a walk starts from, which holds the addressed one.
Ptr<Table> pathBase(Body const& addressed) {
    Ptr<Table> const base = makePtr<Table>(Str("Xpath"));
    base->at(Str("base"), 1) = Cell(makePtr<Table>(addressed));
    return base;
}

/// The first value at a path.
Cell valueAt(Body const& root, Str const& path, char separator) {
    Walk<Reading> walk(root ? root.get() : &TableImplementation::none());
    walk.follow(viewOf(path), separator, false);
    if (!walk.begun()) {
        return pathBase(root)->get(0, 1);
    }
    return walk.first() == nullptr ? Cell() : *walk.first();
}

/// The data body of the first table that the steps of a path reach, without the last step; null when
/// that is no table or the last step can't be taken.
template <typename Access>
Body tableBefore(PathStep const& last, Walk<Access>&& walk, Body const& root, Str const& path,
                 char separator, Growth& growth) {
    walk.follow(viewOf(path), separator, true);
    if (!walk.begun()) {
        return root;
    }
    Ptr<Table> const* const table = walk.first() == nullptr ? nullptr : handleIn(*walk.first());
    return table == nullptr || !last.readable ? Body() : growth.bodyOf(*table);
}

/// The cell at a path, to be written; with `create`, what is missing on the way is made.
Cell& placeAt(Body const& root, Str const& path, bool create, char separator) {
    Growth growth;
    std::string_view rest = viewOf(path);
    std::size_t const behind = rest.rfind(separator) + 1; // npos + 1 is 0: the whole path
    rest.remove_prefix(behind);
    PathStep const last = takeStep(rest, separator);
    Body table = root; // needs no walk for a path of one step, as most attributes have
    if (behind != 0 && create) {
        table = tableBefore(last, Walk<Growing>(&root, Growing(growth)), root, path, separator, growth);
    } else if (behind != 0) {
        table = tableBefore(last, Walk<Reading>(root.get()), root, path, separator, growth);
    }
    std::size_t const item = last.item == Table::npos ? 1 : last.item;
    if (!table || !last.readable || (!create && item >= table->items())) {
        Status failure("No value at specified xpath '", Status::Error, -1);
        failure << path << "'";
        try {
            raise(failure);
        } catch (Except const&) {
            if (create) {
                growth.keep(); // the steps before the last have been taken; only the value is missing
            }
            throw;
        }
    }
    Cell& cell = table->at(Name(last.name), item);
    growth.keep();
    return cell;
}

} // namespace

Status Table::XPath(Str const& path, Ptr<Table>& result, char separator) const {
    Walk<Reading> walk(&body());
    walk.follow(viewOf(path), separator, false);
    Ptr<Table> reached;
    if (walk.begun()) {
        reached = makePtr<Table>(Str("results"));
        TableImplementation::made(reached).addFilled(Cell(toStr(walk.name())), walk.values());
    } else {
        reached = pathBase(data_);
    }
    result = reached; // last of all, since the path may be the name of the former result
    return Status();
}

Cell Table::atXPath(Str const& path, Cell const& /*defaultValue*/, char separator) const {
    return valueAt(data_, path, separator);
}

Cell& Table::atXPath(Str const& path, bool create, char separator) {
    Ptr<TableImplementation> const root = heldBody();
    try {
        Cell& cell = placeAt(root, path, create, separator);
        data_ = root;
        return cell;
    } catch (Except const&) {
        if (root->indices() > 0) {
            data_ = root; // the steps before the last have been taken
        }
        throw;
    }
}

Status Table::setAttribute(Str const& path, Cell const& value) {
    Cell const kept(value); // it may live in the attributes, which may grow
    Ptr<TableImplementation> const attributes =
        heldAttributes() ? attributes_ : makeBody(Str("Attributes"));
    try {
        placeAt(attributes, path, true, '/') = kept;
    } catch (Except const&) {
        attributes_ = attributes;
        throw;
    }
    attributes_ = attributes;
    return Status();
}

Status Table::getAttribute(Str const& path, Cell& value) const {
    if (heldAttributes()) {
        value = valueAt(attributes_, path, '/');
    }
    return Status();
}

} // namespace QX
