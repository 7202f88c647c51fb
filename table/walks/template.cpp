#include "base/makeptr.h"
#include "base/strview.h"
#include "table/walks/rectangle.h"
#include "table/walks/walknested.h"
#include "table/walks/walks.h"

#include <utility>

namespace QX {

namespace {

/// Two tables of one shape that a template is made from.
struct Sampling {
    TableImplementation const* left;
    TableImplementation const* right;
    Ptr<Table> templ = makePtr<Table>();
    Position at{left->indices(), left->items()};

    auto key() const { return std::pair(left, right); }
    Roots<2> roots() const { return {left, right}; }

    /// Marks cells up to the next nested tables and begins with those. Ends where they differ in shape,
    /// which `status` then says.
    std::optional<Sampling> advance(Status& status, Cell const& mark) {
        for (; status.ok() && !at.ended(); at.nextIndex()) {
            ColumnView const cells = left->view(at.i, at.items);
            ColumnView const others = right->view(at.i, at.items);
            while (at.j < at.items) {
                Cell const& cell = cells[at.j];
                Cell const& other = others[at.j];
                if (areTables(cell, other)) {
                    Sampling nested{&nestedBody(cell), &nestedBody(other)};
                    status = checkShape(*nested.left, *nested.right);
                    if (status.ok()) {
                        return nested;
                    }
                    put(Cell());
                    return std::nullopt;
                }
                put(areNumbers(cell, other) ? mark : Cell());
            }
        }
        return std::nullopt;
    }

    void put(Cell const& cell) { at.put(templ, cell); }
};

} // namespace

Status Walks::makeTemplate(TableImplementation const& left, TableImplementation const& right,
                           Ptr<Table>& result) {
    Status status = checkShape(left, right);
    if (!status.ok()) {
        return status;
    }
    Cell const mark(toStr(marker));
    Sampling root{&left, &right};
    result = root.templ;
    walkNested(
        std::move(root),
        [&](Descent<Sampling>& descent) { return descent.back().advance(status, mark); },
        [&](Descent<Sampling>& descent, Sampling const& done) {
            descent.back().put(status.ok() ? Cell(done.templ) : Cell());
        });
    return status;
}

} // namespace QX
