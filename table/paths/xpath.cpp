#include "base/strview.h"
#include "qx/except.h"
#include "table/model/raise.h"
#include "table/paths/firstvalue.h"
#include "table/paths/pathwalk.h"

#include <string_view>

namespace QX {

namespace {

using Body = UndoLog::Body;

/// The table that a walk starts from, which holds the addressed one.
Ptr<Table> pathBase(Body const& addressed) {
    Ptr<Table> const base = makePtr<Table>(Str("Xpath"));
    base->at(Str("base"), 1) = Cell(makePtr<Table>(addressed));
    return base;
}

/// The first value at a path.
Cell valueAt(Body const& root, Str const& path, char separator) {
    BlockVector<PathStep> const steps = stepsOf(viewOf(path), separator, false);
    if (steps.empty()) {
        return pathBase(root)->get(0, 1);
    }
    Cell const* const value = firstValue(root ? *root : emptyBody(), steps);
    return value == nullptr ? Cell() : *value;
}

/// The first table that steps reach, by the handle in its cell; null when that is no table.
Ptr<Table> tableAt(Body const& root, BlockVector<PathStep> const& steps, bool create, UndoLog& undo) {
    Cell const* first = nullptr;
    Walk walk(&root, Growing(undo)); // keeps what it reaches
    if (create) {
        BlockVector<Cell> const& values = walk.follow(steps);
        first = values.empty() ? nullptr : &values.front();
    } else {
        first = firstValue(*root, steps);
    }
    Ptr<Table> const* const table = first == nullptr ? nullptr : handleIn(*first);
    return table == nullptr ? Ptr<Table>() : *table;
}

[[noreturn]] void raiseNoValue(Str const& path) {
    Status failure("No value at specified xpath '", Status::Error, -1);
    failure << path << "'";
    raise(failure);
}

/// The cell at a path, to be written; with `create`, what is missing on the way is made.
Cell& placeAt(Body const& root, Str const& path, bool create, char separator) {
    UndoLog undo;
    std::string_view rest = viewOf(path);
    std::size_t const behind = rest.rfind(separator) + 1; // npos + 1 is 0: the whole path
    rest.remove_prefix(behind);
    PathStep const last = takeStep(rest, separator);
    Body body = root; // needs no walk for a path of one step, as most attributes have
    if (BlockVector<PathStep> const steps = stepsOf(viewOf(path), separator, true); !steps.empty()) {
        Ptr<Table> const table = tableAt(root, steps, create, undo);
        body = table && last.readable ? undo.dataOf(table) : Body();
    }
    std::size_t const item = last.item == Table::npos ? 1 : last.item;
    if (!body || !last.readable || (!create && item >= body->items())) {
        try {
            raiseNoValue(path);
        } catch (Except const&) {
            if (create) {
                undo.commit(); // the steps before the last have been taken; only the value is missing
            }
            throw;
        }
    }
    Cell& cell = body->at(Name(last.name), item);
    undo.commit();
    return cell;
}

} // namespace

Status Table::XPath(Str const& path, Ptr<Table>& result, char separator) const {
    BlockVector<PathStep> const steps = stepsOf(viewOf(path), separator, false);
    Ptr<Table> reached;
    if (steps.empty()) {
        reached = pathBase(data_);
    } else {
        Walk<Reading> walk(&bodyOf(*this));
        BlockVector<Cell const*> const& found = walk.follow(steps);
        reached = makePtr<Table>(Str("results"));
        Column& values = madeBody(reached).addReserved(found.size() + 1);
        values.push_back(Cell(toStr(steps.back().name)));
        for (Cell const* const value : found) {
            values.push_back(*value);
        }
    }
    result = reached; // last of all, since the path may be the name of the former result
    return Status();
}

Cell Table::atXPath(Str const& path, Cell const& /*defaultValue*/, char separator) const {
    return valueAt(data_, path, separator);
}

Cell& Table::atXPath(Str const& path, bool create, char separator) {
    Ptr<TableImplementation> const root = heldBody(*this);
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
    Ptr<TableImplementation> const held = attributes_.held();
    Ptr<TableImplementation> const attributes = held ? held : makeBody(Str("Attributes"));
    try {
        Cell& place = placeAt(attributes, path, true, '/');
        TableBodies::setAttributes(*this, attributes);
        // The former value may hold the last handle to this table, which goes with it: last of all.
        Cell const former(std::move(place));
        place = kept;
    } catch (Except const&) {
        TableBodies::setAttributes(*this, attributes);
        throw;
    }
    return Status();
}

Status Table::getAttribute(Str const& path, Cell& value) const {
    if (attributes_.isNone()) {
        return Status();
    }
    // Attributes that nothing has used yet read as empty ones; they are made only to be handed out whole.
    bool const whole = stepsOf(viewOf(path), '/', false).empty();
    value = valueAt(whole ? attributes_.held() : attributes_.made(), path, '/');
    return Status();
}

} // namespace QX
