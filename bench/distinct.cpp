// Tables of orders without their repeated rows.

#include "families.h"
#include "rows.h"
#include "sqlite.h"
#include "workload.h"

#include <unordered_set>

namespace Bench {

namespace {

std::size_t const n = 100'000;

std::size_t mixed(std::size_t seed, std::size_t hash) {
    return (seed ^ hash) * 0x9E3779B97F4A7C15U;
}

struct SameRow {
    std::size_t operator()(Row const* row) const {
        std::hash<std::string> const text;
        std::hash<double> const number;
        return mixed(
            mixed(mixed(mixed(text(row->name), number(row->id)), text(row->city)), number(row->amount)),
            number(row->crates));
    }
    bool operator()(Row const* left, Row const* right) const { return *left == *right; }
};

/// The first two columns that have few values: what remains of any number of rows is 6,000.
struct Place {
    std::string city;
    double crates = 0;

    friend bool operator==(Place const& left, Place const& right) = default;
};
struct PlaceHash {
    std::size_t operator()(Place const& place) const {
        return mixed(std::hash<std::string>()(place.city), std::hash<double>()(place.crates));
    }
};

using RowSet = std::unordered_set<Row const*, SameRow, SameRow>;

/// Adds the rows that are not in `seen` to `kept`.
void keepOthers(Rows const& rows, RowSet& seen, Rows& kept) {
    for (Row const& row : rows) {
        if (seen.insert(&row).second) {
            kept.push_back(row);
        }
    }
}

auto const tableAnswer = [](Ptr<Table> const& table) { return answerOf(*table, Order::Any); };
auto const madeAnswer = [](Made const& made) { return made.answer(Order::Any); };
auto const rowsAnswer = [](Rows const& rows) { return answerOf(rows, Order::Any); };

Job selecting(Ptr<Table> const& table, std::vector<std::string> const& names) {
    return job(
        [table, operand = namesTable(names)] {
            Ptr<Table> picked;
            (void)table->select(operand, picked, false, true, false);
            return picked;
        },
        tableAnswer);
}

void addFew() {
    Prepare const plain = [](std::size_t size) {
        return job(
            [&rows = rowsOf(size)] {
                std::unordered_set<Place, PlaceHash> seen;
                std::vector<Place> kept;
                for (Row const& row : rows) {
                    if (seen.insert({row.city, row.crates}).second) {
                        kept.push_back({row.city, row.crates});
                    }
                }
                return kept;
            },
            [](std::vector<Place> const& kept) {
                Tally tally(Order::Any);
                for (Place const& place : kept) {
                    tally << place.city << place.crates;
                    tally.endRow();
                }
                return tally.answer();
            });
    };
    add({"distinct/two columns, few remain",
         n,
         [](std::size_t size) {
             return selecting(tableOnce(size), {"city", "crates"});
         },
         {{"sqlite",
           [](std::size_t size) {
               return job(
                   [&orders = ordersDatabase(size)] {
                       return Made(orders, "SELECT DISTINCT city, crates FROM orders");
                   },
                   madeAnswer);
           }},
          {"plain", plain}}});
}

void addHalf() {
    add({"distinct/five columns, half remain",
         n,
         [](std::size_t size) {
             return selecting(tableOf(repeatedRows(size)), {"id", "name", "city", "amount", "crates"});
         },
         {{"sqlite",
           [](std::size_t size) {
               Database const& orders = ordersDatabase(size);
               orders.load("repeated", repeatedRows(size));
               return job([&orders] { return Made(orders, "SELECT DISTINCT * FROM repeated"); },
                          madeAnswer);
           }},
          {"plain", [](std::size_t size) {
               return job(
                   [&rows = repeatedRows(size)] {
                       RowSet seen;
                       Rows kept;
                       keepOthers(rows, seen, kept);
                       return kept;
                   },
                   rowsAnswer);
           }}}});
}

/// Half as many rows as asked for, the second half of which overlapping(n, 1) begins with.
Rows overlapping(std::size_t size, std::size_t part) {
    Rows const& rows = rowsOf(size);
    auto const begin = rows.begin() + static_cast<std::ptrdiff_t>(part * (size / 4));
    return {begin, begin + static_cast<std::ptrdiff_t>(size / 2)};
}

void addAppended() {
    add({"distinct/append, a quarter repeats",
         n,
         [](std::size_t size) {
             return job(
                 [first = tableOf(overlapping(size, 0)), second = tableOf(overlapping(size, 1))] {
                     Ptr<Table> all;
                     (void)first->append(second, all, true, true);
                     return all;
                 },
                 tableAnswer);
         },
         {{"sqlite",
           [](std::size_t size) {
               Database const& orders = ordersDatabase(size);
               orders.load("first", overlapping(size, 0));
               orders.load("second", overlapping(size, 1));
               return job(
                   [&orders] { return Made(orders, "SELECT * FROM first UNION SELECT * FROM second"); },
                   madeAnswer);
           }},
          {"plain", [](std::size_t size) {
               return job(
                   [first = overlapping(size, 0), second = overlapping(size, 1)] {
                       RowSet seen;
                       Rows kept;
                       keepOthers(first, seen, kept);
                       keepOthers(second, seen, kept);
                       return kept;
                   },
                   rowsAnswer);
           }}}});
}

} // namespace

void addDistinct() {
    addFew();
    addHalf();
    addAppended();
}

} // namespace Bench
