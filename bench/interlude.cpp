#include "interlude.h"

#include "rows.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <string>

namespace Bench {

namespace {

std::size_t const size = 50'000;

/// Runs a whole-table operation and drops what it has made.
template <typename Combine>
std::function<void()> operation(Combine combine) {
    return [combine] {
        Ptr<Table> made;
        combine(*tableOnce(size), made);
        benchmark::DoNotOptimize(made);
    };
}

/// Groups rows by a text, as plain C++ would.
void countNames() {
    std::map<std::string, double> sums;
    for (Row const& row : rowsOf(size)) {
        sums[row.name.substr(0, 3) + row.city] += row.amount;
    }
    benchmark::DoNotOptimize(sums);
}

void copyRows() {
    Rows copy = rowsOf(size);
    benchmark::DoNotOptimize(copy.data());
}

} // namespace

void interlude() {
    static std::array<std::function<void()>, 6> const round = {
        operation([keys = Ptr<Table const>(namesTable({"city"}))](Table const& table, Ptr<Table>& made) {
            (void)table.sort(keys, made, true);
        }),
        copyRows,
        operation([](Table const& table, Ptr<Table>& made) {
            (void)table.append(Ptr<Table const>(tableOnce(size)), made, true, false);
        }),
        countNames,
        operation([](Table const& table, Ptr<Table>& made) {
            (void)table.merge(Ptr<Table const>(tableOnce(size)), made, true);
        }),
        operation([](Table const& table, Ptr<Table>& made) { made = table.clone(); }),
    };
    static std::size_t next = 0;
    round[next++ % round.size()]();
}

} // namespace Bench
