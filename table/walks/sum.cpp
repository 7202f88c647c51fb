#include "qx/detail/arithmetic.h"
#include "table/model/raise.h"
#include "table/walks/rectangle.h"
#include "table/walks/walknested.h"
#include "table/walks/walks.h"

#include <map>
#include <utility>

namespace QX {

namespace {

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
    Roots<2> roots() const { return {data, templ}; }

    /// Adds cells to `total` up to the next nested tables whose sum is not known and begins with those.
    std::optional<Summation> advance(Detail::Operator op, Sums const& known, double& total) {
        for (; !at.ended(); at.nextIndex()) {
            ColumnView const cells = data->view(at.i, at.items);
            ColumnView const guides = templ->view(at.i, at.items);
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

    static void add(Detail::Operator op, double value, double& total) {
        if (op != Detail::Operator::Add) {
            raise("Unsupported Unary operation");
        }
        total += value;
    }

private:
    static Summation beginNested(Cell const& cell, Cell const& guide) {
        if (cell.isA() != Cell::TableCell) {
            raise("Mismatched table structure");
        }
        bool const repeats = isSharedTable(cell) && isSharedTable(guide);
        return begin(nestedBody(cell), nestedBody(guide), repeats);
    }
};

} // namespace

Status Walks::unaryOperation(TableImplementation const& table, Str const& op,
                             TableImplementation const& templ, double& total) {
    Detail::Operator const decoded = Detail::operatorOf(op);
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
    walkNested(Summation::begin(table, templ, false), advance, finish);
    return Status();
}

} // namespace QX
