#include "qx/detail/arithmetic.h"
#include "base/makeptr.h"
#include "table/model/raise.h"
#include "table/walks/rectangle.h"
#include "table/walks/walknested.h"
#include "table/walks/walks.h"

#include <tuple>

namespace QX {

namespace {

/// Combines cells by one operator.
class Operation {
public:
    explicit Operation(Str const& op) : op_(op), known_(Detail::operatorOf(op)) {}

    Str const& name() const { return op_; }
    Cell operator()(Cell const& left, Cell const& right) const {
        return areNumbers(left, right) && known_ != Detail::Operator::Unknown
                   ? Cell(Detail::operate(known_, numberOf(left), numberOf(right)))
                   : left.operation(right, op_);
    }

private:
    Str const& op_;
    Detail::Operator known_;
};

Status prefixed(char const* prefix, Status const& failure) {
    return Status(Str(prefix) + failure.message(false), Status::Error, -1);
}

Status expectedTable(std::size_t i, std::size_t j) {
    Status mismatch("Mismatched table structure - expected table at index ", Status::Error, -1);
    mismatch << i << " item " << j;
    return mismatch;
}

/// Two tables being combined under a template.
struct Combination {
    TableImplementation const* left;
    TableImplementation const* right;
    TableImplementation const* templ;
    Ptr<Table> computed;
    Position at{left->indices(), left->items()};

    static Combination begin(TableImplementation const& left, TableImplementation const& right,
                             TableImplementation const& templ, Operation const& compute) {
        if (Status const shape = checkShape(left, right); !shape.ok()) {
            raise(prefixed("Left and Right operands ", shape));
        }
        if (Status const shape = checkShape(left, templ); !shape.ok()) {
            raise(prefixed("Template and operands ", shape));
        }
        return {&left, &right, &templ, makePtr<Table>(compute.name() + " operation ")};
    }

    auto key() const { return std::tuple(left, right, templ); }
    Roots<3> roots() const { return {left, right, templ}; }

    /// Computes cells up to the next nested tables and begins with those.
    std::optional<Combination> advance(Operation const& compute) {
        for (; !at.ended(); at.nextIndex()) {
            ColumnView const cells = left->view(at.i, at.items);
            ColumnView const others = right->view(at.i, at.items);
            ColumnView const guides = templ->view(at.i, at.items);
            while (at.j < at.items) {
                Cell const& cell = cells[at.j];
                Cell const& guide = guides[at.j];
                if (guide.isA() == Cell::TableCell) {
                    return beginNested(cell, others[at.j], guide, compute);
                }
                put(isMarker(guide) ? compute(cell, others[at.j]) : cell);
            }
        }
        return std::nullopt;
    }

    void put(Cell const& cell) { at.put(computed, cell); }

private:
    Combination beginNested(Cell const& cell, Cell const& other, Cell const& guide,
                            Operation const& compute) const {
        if (!areTables(cell, other)) {
            raise(expectedTable(at.i, at.j));
        }
        return begin(nestedBody(cell), nestedBody(other), nestedBody(guide), compute);
    }
};

} // namespace

Status Walks::operation(TableImplementation const& left, TableImplementation const& right, Str const& op,
                        TableImplementation const& templ, Ptr<Table>& result) {
    Ptr<Table> const former = result; // `op` may be its name
    Operation const compute(op);
    Combination root = Combination::begin(left, right, templ, compute);
    result = root.computed;
    walkNested(
        std::move(root), [&](Descent<Combination>& descent) { return descent.back().advance(compute); },
        [](Descent<Combination>& descent, Combination const& done) {
            descent.back().put(Cell(done.computed));
        });
    return Status();
}

} // namespace QX
