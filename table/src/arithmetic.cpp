#include "base/strview.h"
#include "cell/cellvalue.h"
#include "cell/operator.h"
#include "table/src/descent.h"
#include "table/src/raise.h"
#include "table/src/tableimpl.h"

#include <map>
#include <string_view>
#include <tuple>

namespace QX {

namespace {

constexpr std::string_view marker = "%D";

/// True for a template cell that marks a position to compute with.
bool isMarker(Cell const& cell) {
    if (cell.isA() == Cell::StringCell) {
        std::string_view const text = textOf(cell);
        return text.size() == marker.size() &&
               text.starts_with(marker); // no call, its size being constant
    }
    if (cell.isA() != Cell::ErrorCell) {
        return false;
    }
    Str text;
    cell.get(text, 0); // an error cell of an Ok status shows its text unmarked
    return viewOf(text) == marker;
}

/// Combines cells by one operator.
class Operation {
public:
    explicit Operation(Str const& op) : op_(op), known_(operatorOf(op)) {}

    Str const& name() const { return op_; }
    Cell operator()(Cell const& left, Cell const& right) const {
        bool const numbers = left.isA() == Cell::NumericCell && right.isA() == Cell::NumericCell;
        return numbers && known_ != Operator::Unknown
                   ? Cell(operate(known_, numberOf(left), numberOf(right)))
                   : left.operation(right, op_);
    }

private:
    Str const& op_;
    Operator known_;
};

Status prefixed(char const* prefix, Status const& failure) {
    return Status(Str(prefix) + failure.message(false), Status::Error, -1);
}

Status expectedTable(std::size_t i, std::size_t j) {
    Status mismatch("Mismatched table structure - expected table at index ", Status::Error, -1);
    mismatch << i << " item " << j;
    return mismatch;
}

bool areTables(Cell const& left, Cell const& right) {
    return left.isA() == Cell::TableCell && right.isA() == Cell::TableCell;
}

TableImplementation const& nestedBody(Cell const& tableCell) {
    return TableImplementation::of(*nestedIn(tableCell));
}

/// Where the walk of a rectangle stands.
struct Position {
    std::size_t indices;
    std::size_t items;
    std::size_t i = 0;
    std::size_t j = 0;

    bool ended() const { return items == 0 || i == indices; }
    void nextIndex() {
        ++i;
        j = 0;
    }
    /// Adds the cell at this position to a table that is filled in the order of the walk.
    void put(Ptr<Table> const& table, Cell const& cell) {
        TableImplementation& body = TableImplementation::made(table);
        (j == 0 ? body.addReserved(items) : body.last()).push_back(cell);
        ++j;
    }
};

/// Two tables being combined under a template.
struct Combination {
    TableImplementation const* left;
    TableImplementation const* right;
    TableImplementation const* templ;
    Ptr<Table> computed;
    Position at{left->indices(), left->items()};

    static Combination begin(TableImplementation const& left, TableImplementation const& right,
                             TableImplementation const& templ, Operation const& compute) {
        if (Status const shape = left.checkShape(right); !shape.ok()) {
            raise(prefixed("Left and Right operands ", shape));
        }
        if (Status const shape = left.checkShape(templ); !shape.ok()) {
            raise(prefixed("Template and operands ", shape));
        }
        return {&left, &right, &templ, makePtr<Table>(compute.name() + " operation ")};
    }

    auto key() const { return std::tuple(left, right, templ); }

    /// Computes cells up to the next nested tables and begins with those.
    std::optional<Combination> advance(Operation const& compute) {
        for (; !at.ended(); at.nextIndex()) {
            Column const cells = left->column(at.i, at.items);
            Column const others = right->column(at.i, at.items);
            Column const guides = templ->column(at.i, at.items);
            while (at.j < at.items) {
                Cell const& cell = cells[at.j];
                Cell const& guide = guides[at.j];
                if (Table const* const nested = nestedIn(guide)) {
                    return beginNested(cell, others[at.j], *nested, compute);
                }
                put(isMarker(guide) ? compute(cell, others[at.j]) : cell);
            }
        }
        return std::nullopt;
    }

    void put(Cell const& cell) { at.put(computed, cell); }

private:
    Combination beginNested(Cell const& cell, Cell const& other, Table const& guide,
                            Operation const& compute) const {
        if (!areTables(cell, other)) {
            raise(expectedTable(at.i, at.j));
        }
        return begin(nestedBody(cell), nestedBody(other), TableImplementation::of(guide), compute);
    }
};

/// Two tables of one shape that a template is made from.
struct Sampling {
    TableImplementation const* left;
    TableImplementation const* right;
    Ptr<Table> templ = makePtr<Table>();
    Position at{left->indices(), left->items()};

    auto key() const { return std::pair(left, right); }

    /// Marks cells up to the next nested tables and begins with those. Ends where they differ in shape,
    /// which `status` then says.
    std::optional<Sampling> advance(Status& status, Cell const& mark) {
        for (; status.ok() && !at.ended(); at.nextIndex()) {
            Column const cells = left->column(at.i, at.items);
            Column const others = right->column(at.i, at.items);
            while (at.j < at.items) {
                Cell const& cell = cells[at.j];
                Cell const& other = others[at.j];
                if (areTables(cell, other)) {
                    Sampling nested{&nestedBody(cell), &nestedBody(other)};
                    status = nested.left->checkShape(*nested.right);
                    if (status.ok()) {
                        return nested;
                    }
                    put(Cell());
                    return std::nullopt;
                }
                bool const numbers = cell.isA() == Cell::NumericCell && other.isA() == Cell::NumericCell;
                put(numbers ? mark : Cell());
            }
        }
        return std::nullopt;
    }

    void put(Cell const& cell) { at.put(templ, cell); }
};

/// A table being summed under a template.
struct Summation {
    using Key = std::pair<TableImplementation const*, TableImplementation const*>;
    using Sums = std::map<Key, double>;

    TableImplementation const* data;
    TableImplementation const* templ;
    bool repeats; // the two may be met together again
    double sum = 0;
    Position at{templ->indices(), templ->items()};

    static Summation begin(TableImplementation const& data, TableImplementation const& templ,
                           bool repeats) {
        if (templ.indices() > data.indices()) {
            raise("Number of indices in template exceeds original data set");
        }
        if (templ.items() > data.items()) {
            raise("Number of items in template exceeds original data set");
        }
        return {&data, &templ, repeats};
    }

    Key key() const { return {data, templ}; }

    /// Adds cells to `total` up to the next nested tables whose sum is not known and begins with those.
    std::optional<Summation> advance(Operator op, Sums const& known, double& total) {
        for (; !at.ended(); at.nextIndex()) {
            Column const cells = data->column(at.i, at.items);
            Column const guides = templ->column(at.i, at.items);
            for (; at.j < at.items; ++at.j) {
                Cell const& cell = cells[at.j];
                Cell const& guide = guides[at.j];
                if (guide.isA() == Cell::TableCell) {
                    Summation nested = beginNested(cell, guide);
                    auto const met = known.find(nested.key());
                    if (met == known.end()) {
                        return nested;
                    }
                    add(op, met->second, total);
                } else if (isMarker(guide)) {
                    add(op, cell.isA() == Cell::NumericCell ? numberOf(cell).get() : 0, total);
                }
            }
        }
        return std::nullopt;
    }

    static void add(Operator op, double value, double& total) {
        if (op != Operator::Add) {
            raise("Unsupported Unary operation");
        }
        total += value;
    }

private:
    static Summation beginNested(Cell const& cell, Cell const& guide) {
        if (cell.isA() != Cell::TableCell) {
            raise("Mismatched table structure");
        }
        bool const repeats = TableImplementation::isShared(cell) && TableImplementation::isShared(guide);
        return begin(nestedBody(cell), nestedBody(guide), repeats);
    }
};

} // namespace

Status TableImplementation::checkShape(TableImplementation const& other) const {
    Status status;
    if (indices() != other.indices()) {
        status << "do not have matching indices";
    } else if (items() != other.items()) {
        status << "do not have matching items";
    }
    return status;
}

Status TableImplementation::operation(TableImplementation const& right, Str const& op,
                                      TableImplementation const& templ, Ptr<Table>& result) const {
    Ptr<Table> const former = result; // `op` may be its name
    Operation const compute(op);
    Combination root = Combination::begin(*this, right, templ, compute);
    result = root.computed;
    descend(
        std::move(root), [&](Descent<Combination>& descent) { return descent.back().advance(compute); },
        [](Descent<Combination>& descent, Combination const& done) {
            descent.back().put(Cell(done.computed));
        });
    return Status();
}

Status TableImplementation::makeTemplate(TableImplementation const& other, Ptr<Table>& result) const {
    Status status = checkShape(other);
    if (!status.ok()) {
        return status;
    }
    Cell const mark(toStr(marker));
    Sampling root{this, &other};
    result = root.templ;
    descend(
        std::move(root),
        [&](Descent<Sampling>& descent) { return descent.back().advance(status, mark); },
        [&](Descent<Sampling>& descent, Sampling const& done) {
            descent.back().put(status.ok() ? Cell(done.templ) : Cell());
        });
    return status;
}

Status TableImplementation::unaryOperation(Str const& op, TableImplementation const& templ,
                                           double& total) const {
    Operator const decoded = operatorOf(op);
    Summation::Sums known; // a table can be reached along 2^depth ways
    auto const sumOf = [&](Descent<Summation>& descent) -> double& {
        return descent.size() == 1 ? total : descent.back().sum; // `total` counts also when this raises
    };
    auto const advance = [&](Descent<Summation>& descent) {
        return descent.back().advance(decoded, known, sumOf(descent));
    };
    auto const finish = [&](Descent<Summation>& descent, Summation const& done) {
        if (done.repeats) {
            known.emplace(done.key(), done.sum);
        }
        Summation::add(decoded, done.sum, sumOf(descent));
        ++descent.back().at.j;
    };
    descend(Summation::begin(*this, templ, false), advance, finish);
    return Status();
}

} // namespace QX
