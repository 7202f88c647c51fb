#include "cell/cellvalue.h"
#include "table/src/raise.h"
#include "table/src/tableimpl.h"

#include <algorithm>

namespace QX {

namespace {

constexpr std::string_view marker = "%D";

/// True for a template cell that marks a position to compute with.
bool isMarker(Cell const& cell) {
    CellValue const value = valueOf(cell);
    if (value.kind != Cell::ErrorCell) {
        return value.text == marker;
    }
    Str text; // an error cell of an Ok status shows its text unmarked
    cell.get(text, 0);
    return std::string_view(text.data(), text.size()) == marker;
}

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
    if (Status const shape = checkShape(right); !shape.ok()) {
        raise(prefixed("Left and Right operands ", shape));
    }
    if (Status const shape = checkShape(templ); !shape.ok()) {
        raise(prefixed("Template and operands ", shape));
    }
    Ptr<Table> const former = result; // `op` may be its name
    Ptr<Table> const table = makePtr<Table>(op + " operation ");
    result = table;
    TableImplementation& computed = made(table);
    std::size_t const width = items();
    for (std::size_t i = 0; i < indices(); ++i) {
        for (std::size_t j = 0; j < width; ++j) {
            Cell const& cell = get(i, j);
            Cell const& other = right.get(i, j);
            Cell const& guide = templ.get(i, j);
            if (guide.isA() != Cell::TableCell) {
                computed.at(i, j) = isMarker(guide) ? cell.operation(other, op) : cell;
                continue;
            }
            if (!areTables(cell, other)) {
                raise(expectedTable(i, j));
            }
            Ptr<Table> nested;
            of(*tableOf(cell)).operation(of(*tableOf(other)), op, of(*tableOf(guide)), nested);
            computed.at(i, j) = Cell(nested);
        }
    }
    return Status();
}

Status TableImplementation::makeTemplate(TableImplementation const& other, Ptr<Table>& result) const {
    Status status = checkShape(other);
    if (!status.ok()) {
        return status;
    }
    Ptr<Table> const table = makePtr<Table>();
    result = table;
    TableImplementation& templ = made(table);
    Cell const mark{Str("%D")};
    std::size_t const width = items();
    for (std::size_t i = 0; i < indices(); ++i) {
        for (std::size_t j = 0; j < width; ++j) {
            Cell const& left = get(i, j);
            Cell const& right = other.get(i, j);
            Cell& place = templ.at(i, j);
            if (areTables(left, right)) {
                Ptr<Table> nested;
                status = of(*tableOf(left)).makeTemplate(of(*tableOf(right)), nested);
                if (!status.ok()) {
                    return status;
                }
                place = Cell(nested);
            } else if (left.isA() == Cell::NumericCell && right.isA() == Cell::NumericCell) {
                place = mark;
            }
        }
    }
    return status;
}

Status TableImplementation::unaryOperation(Str const& op, TableImplementation const& templ,
                                           double& total) const {
    if (templ.indices() > indices()) {
        raise("Number of indices in template exceeds original data set");
    }
    std::size_t const width = templ.items();
    if (width > items()) {
        raise("Number of items in template exceeds original data set");
    }
    for (std::size_t i = 0; i < templ.indices(); ++i) {
        for (std::size_t j = 0; j < width; ++j) {
            Cell const& guide = templ.get(i, j);
            double value = 0; // stays so for a cell that is no number
            if (guide.isA() == Cell::TableCell) {
                if (get(i, j).isA() != Cell::TableCell) {
                    raise("Mismatched table structure");
                }
                of(*tableOf(get(i, j))).unaryOperation(op, of(*tableOf(guide)), value);
            } else if (isMarker(guide)) {
                get(i, j).get(value);
            } else {
                continue;
            }
            if (!(op == "+")) {
                raise("Unsupported Unary operation");
            }
            total += value;
        }
    }
    return Status();
}

} // namespace QX
