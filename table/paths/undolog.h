#pragma once

#include "table/model/bodies.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace QX {

/// What is added to tables on the way to a cell: taken back in the end, the last first, unless it is
/// kept.
///
/// Each addition is noted before it is made, so that taking back allocates nothing.
class UndoLog {
public:
    using Body = Ptr<TableImplementation>;

    UndoLog() = default;
    UndoLog(UndoLog const&) = delete;
    UndoLog& operator=(UndoLog const&) = delete;
    ~UndoLog() {
        for (; !additions_.empty(); additions_.pop_back()) {
            additions_.back().takeBack();
        }
    }

    /// Lets everything stay that has been added so far.
    void commit() { additions_.clear(); }

    /// The data body of a table, made where it has none.
    Body const& dataOf(Ptr<Table> const& table) {
        Body& data = TableBodies::data(*table);
        if (!data) {
            additions_.push_back({table, Body(), 0, 0});
            data = makeBody(Str());
        }
        return data;
    }
    /// The cell at item j of index i, an index that is there; it grows to reach the item.
    Cell& at(Body const& body, std::size_t i, std::size_t j) {
        std::size_t const length = std::as_const(*body).columns()[i].size();
        if (j >= length) {
            additions_.push_back({Ptr<Table>(), body, i, length});
        }
        return body->at(i, j);
    }
    /// Adds an index of so many items, at least one, the first of them `name`.
    Column& addSized(Body const& body, Cell const& name, std::size_t items) {
        additions_.push_back({Ptr<Table>(), body, body->indices(), Table::npos});
        return body->addSized(name, items);
    }

private:
    /// A body that a table has got, or else an index that a body has got or that was of a lesser length.
    struct Addition {
        Ptr<Table> table;
        Body body;
        std::size_t index;
        std::size_t length; // npos: there was no such index

        void takeBack() const {
            if (table) {
                TableBodies::data(*table).reset();
            } else if (length == Table::npos) {
                body->columns().resize(index);
            } else {
                body->columns()[index].resize(length);
            }
        }
    };

    std::vector<Addition> additions_;
};

} // namespace QX
