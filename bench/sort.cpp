// Sorting a table of orders by one or two keys.

#include "families.h"
#include "rows.h"
#include "sqlite.h"
#include "workload.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <tuple>

namespace Bench {

namespace {

std::size_t const n = 100'000;

Prepare byQx(std::vector<std::string> const& keys, bool ascending) {
    return [keys, ascending](std::size_t size) {
        return job(
            [table = tableOnce(size), operand = namesTable(keys), ascending] {
                Ptr<Table> sorted;
                (void)table->sort(operand, sorted, ascending);
                return sorted;
            },
            [](Ptr<Table> const& sorted) { return answerOf(*sorted); });
    };
}

Prepare bySqlite(std::vector<std::string> const& keys, bool ascending) {
    std::string list;
    for (std::string const& key : keys) {
        list += (list.empty() ? "" : ", ") + key + (ascending ? "" : " DESC");
    }
    return [query = "SELECT * FROM orders ORDER BY " + list](std::size_t size) {
        return job([&orders = ordersDatabase(size), query] { return Made(orders, query); },
                   [](Made const& made) { return made.answer(Order::Kept); });
    };
}

/// Sorts the numbers of the rows, then places each row once.
template <typename Less>
Prepare byPlain(Less less) {
    return [less](std::size_t size) {
        return job(
            [&rows = rowsOf(size), less] {
                std::vector<std::uint32_t> order(rows.size());
                std::iota(order.begin(), order.end(), 0U);
                std::stable_sort(
                    order.begin(), order.end(),
                    [&rows, less](std::uint32_t a, std::uint32_t b) { return less(rows[a], rows[b]); });
                Rows sorted;
                sorted.reserve(rows.size());
                for (std::uint32_t const i : order) {
                    sorted.push_back(rows[i]);
                }
                return sorted;
            },
            [](Rows const& sorted) { return answerOf(sorted); });
    };
}

template <typename Less>
void addSorted(std::string const& name, std::vector<std::string> const& keys, Less less,
               bool ascending = true) {
    add({"sort/" + name,
         n,
         byQx(keys, ascending),
         {{"sqlite", bySqlite(keys, ascending)}, {"plain", byPlain(less)}}});
}

} // namespace

void addSort() {
    addSorted("number, all differ", {"id"}, [](Row const& a, Row const& b) { return a.id < b.id; });
    addSorted(
        "number, descending", {"amount"}, [](Row const& a, Row const& b) { return a.amount > b.amount; },
        false);
    addSorted("number, 100 values", {"crates"},
              [](Row const& a, Row const& b) { return a.crates < b.crates; });
    addSorted("text, all differ", {"name"}, [](Row const& a, Row const& b) { return a.name < b.name; });
    addSorted("text, 60 values", {"city"}, [](Row const& a, Row const& b) { return a.city < b.city; });
    addSorted("two keys, few values", {"city", "crates"}, [](Row const& a, Row const& b) {
        return std::tie(a.city, a.crates) < std::tie(b.city, b.crates);
    });
    addSorted("two keys, many values", {"city", "name"}, [](Row const& a, Row const& b) {
        return std::tie(a.city, a.name) < std::tie(b.city, b.name);
    });
}

} // namespace Bench
