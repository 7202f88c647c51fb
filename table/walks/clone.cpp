#include "base/makeptr.h"
#include "table/model/bodies.h"
#include "table/walks/walknested.h"
#include "table/walks/walks.h"

#include <utility>

namespace QX {

namespace {

/// A table on its way into a copy: first its data, then its attributes.
struct Cloning {
    TableImplementation const* data;
    TableImplementation const* attributes; // null when there are none or nothing has used them
    Ptr<Table> copy;
    bool inAttributes = false;
    std::size_t height = data->items(); // of the one that is being copied

    static Cloning begin(Table const& table) {
        TableImplementation const& data = bodyOf(table);
        return {&data, TableBodies::attributes(table).get(), makePtr<Table>(data.name())};
    }

    TableImplementation const& source() const { return inAttributes ? *attributes : *data; }
    TableImplementation& target() const {
        return inAttributes ? *TableBodies::attributes(*copy) : madeBody(copy);
    }
    auto key() const { return std::pair(data, attributes); }
    Roots<2> roots() const { return {data, attributes}; }

    /// Goes on to the attributes; false when there are none.
    bool nextBody() {
        if (inAttributes || attributes == nullptr) {
            return false;
        }
        inAttributes = true;
        height = attributes->items();
        TableBodies::setAttributes(*copy, makeBody(attributes->name()));
        return true;
    }

    /// Copies cells up to the next nested table, whose copy the caller is to add. Null at the end.
    Table const* copyCells() const {
        if (height == 0) {
            return nullptr;
        }
        Columns const& columns = source().columns();
        Columns& copies = target().columns();
        copies.reserve(columns.size());
        for (std::size_t i = copies.empty() ? 0 : copies.size() - 1; i < columns.size(); ++i) {
            if (i == copies.size()) {
                copies.push_back(Column()).reserve(height);
            }
            Column const& column = columns[i];
            Column& cells = copies[i];
            for (std::size_t j = cells.size(); j < column.size(); ++j) {
                if (Table const* const nested = nestedIn(column[j])) {
                    return nested;
                }
                cells.push_back(column[j]);
            }
            cells.resize(height);
        }
        return nullptr;
    }
};

} // namespace

Ptr<Table> Walks::clone(Table const& table) {
    auto const advance = [](Descent<Cloning>& descent) -> std::optional<Cloning> {
        Cloning& walk = descent.back();
        do {
            if (Table const* const nested = walk.copyCells()) {
                return Cloning::begin(*nested);
            }
        } while (walk.nextBody());
        return std::nullopt;
    };
    auto const finish = [](Descent<Cloning>& descent, Cloning const& done) {
        descent.back().target().columns().back().push_back(Cell(done.copy));
    };
    return walkNested(Cloning::begin(table), advance, finish).copy;
}

} // namespace QX
