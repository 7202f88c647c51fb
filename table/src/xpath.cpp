#include "base/strview.h"
#include "qx/except.h"
#include "table/src/growth.h"
#include "table/src/pathstep.h"
#include "table/src/raise.h"
#include "table/src/tableimpl.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace QX {

namespace {

using Body = Growth::Body;

/// Follows a path from one table: each step is applied to every table that the step before has reached.
class Walk {
public:
    /// With `growth` a step makes the indices and items that it lacks.
    explicit Walk(Body const& root, Growth* growth = nullptr) : root_(root), growth_(growth) {}

    /// Takes the steps of `path`, without the last if that is left to the caller. Stops at a step without
    /// a name or with a number that cannot be read.
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
    /// The cells that the last step reached.
    std::vector<Cell>& values() { return values_; }

    /// The first cell that was reached, as a table to write to; null when it is none. Before the first
    /// step it is the table that the walk began with.
    Body firstTable(Growth& growth) const {
        if (!begun()) {
            return root_;
        }
        Ptr<Table> const table = values_.empty() ? Ptr<Table>() : tableOf(values_.front());
        return table ? growth.bodyOf(table) : Body();
    }

private:
    void take(PathStep const& step) {
        std::vector<Cell> const reached = std::exchange(values_, {});
        Cell const name(toStr(step.name));
        if (!begun()) {
            takeFrom(root_, step, name);
        }
        name_ = step.name;
        for (Cell const& cell : reached) {
            if (Ptr<Table> const table = tableOf(cell)) {
                Body const body =
                    growth_ == nullptr ? TableImplementation::held(*table) : growth_->bodyOf(table);
                takeFrom(body, step, name);
            }
        }
    }

    /// Takes one item of the named index or, for a step without a number, every item but the name, as many
    /// as the table's longest index has.
    void takeFrom(Body const& table, PathStep const& step, Cell const& name) {
        std::size_t const index =
            growth_ == nullptr ? table->findIndex(name) : indexMade(table, step, name);
        bool const all = step.item == Table::npos;
        std::size_t const end = all ? table->items() : step.item + 1;
        for (std::size_t k = all ? 1 : step.item; k < end; ++k) {
            values_.push_back(growth_ == nullptr ? table->get(index, k) : growth_->at(table, index, k));
        }
    }

    /// The named index, added with a new table in item 1 where there is none.
    std::size_t indexMade(Body const& table, PathStep const& step, Cell const& name) const {
        std::size_t const index = table->findIndex(name);
        if (index != Table::npos) {
            return index;
        }
        Cell const nested(makePtr<Table>(toStr(step.name)));
        std::size_t const item = step.item == Table::npos ? 1 : step.item;
        growth_->addSized(table, name, std::max<std::size_t>(item, 1) + 1)[1] = nested;
        return table->indices() - 1;
    }

    Body root_;
    Growth* growth_;
    std::string_view name_;
    std::vector<Cell> values_;
};

/// The table that a walk starts from, which holds the addressed one.
Ptr<Table> pathBase(Body const& addressed) {
    Ptr<Table> const base = makePtr<Table>(Str("Xpath"));
    base->at(Str("base"), 1) = Cell(makePtr<Table>(addressed));
    return base;
}

} // namespace

Status Table::XPath(Str const& path, Ptr<Table>& result, char separator) const {
    Walk walk(heldBody());
    walk.follow(viewOf(path), separator, false);
    Ptr<Table> reached = pathBase(data_);
    if (walk.begun()) {
        reached = makePtr<Table>(Str("results"));
        TableImplementation::made(reached).addFilled(Cell(toStr(walk.name())), std::move(walk.values()));
    }
    result = reached; // last of all, since the path may be the name of the former result
    return Status();
}

Cell Table::atXPath(Str const& path, Cell const& /*defaultValue*/, char separator) const {
    Walk walk(heldBody());
    walk.follow(viewOf(path), separator, false);
    if (!walk.begun()) {
        return pathBase(data_)->get(0, 1);
    }
    return walk.values().empty() ? Cell() : walk.values().front();
}

Cell& Table::atXPath(Str const& path, bool create, char separator) {
    Ptr<TableImplementation> const root = heldBody();
    Growth growth;
    Walk walk(root, create ? &growth : nullptr);
    walk.follow(viewOf(path), separator, true);
    std::string_view rest = viewOf(path);
    rest.remove_prefix(rest.rfind(separator) + 1); // npos + 1 is 0: the whole path
    PathStep const last = takeStep(rest, separator);
    Ptr<TableImplementation> const table = walk.firstTable(growth);
    std::size_t const item = last.item == npos ? 1 : last.item;
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
    Cell& cell = table->at(toStr(last.name), item);
    growth.keep();
    data_ = root;
    return cell;
}

Status Table::setAttribute(Str const& path, Cell const& value) {
    Cell const kept(value); // it may live in the attributes, which may grow
    Table attributes(attributes_ ? attributes_ : makeBody(Str("Attributes")));
    attributes.atXPath(path, true, '/') = kept;
    attributes_ = attributes.data_;
    return Status();
}

Status Table::getAttribute(Str const& path, Cell& value) const {
    if (attributes_) {
        value = Table(attributes_).atXPath(path, Cell(), '/');
    }
    return Status();
}

} // namespace QX
