// Two tables of orders that share no cell compared: equal ones, and ones that differ in one row of a
// hundred.

#include "families.h"
#include "rows.h"
#include "sqlite.h"
#include "workload.h"

namespace Bench {

namespace {

std::size_t const n = 50'000;

Rows const& rightRows(std::size_t size, bool equal) {
    return equal ? rowsOf(size) : changedRows(size);
}

Prepare byQx(bool equal) {
    return [equal](std::size_t size) {
        return job(
            [left = tableOnce(size), right = tableOf(rightRows(size, equal))] {
                Ptr<Table> differences;
                (void)left->compare(right, differences, false);
                return differences;
            },
            [](Ptr<Table> const& differences) {
                Tally tally(Order::Any);
                for (std::size_t j = 1; j < differences->items(0); ++j) {
                    take(tally, differences->get("Right", j));
                    tally.endRow();
                }
                return tally.answer();
            });
    };
}

Database const& bothDatabase(std::size_t size, bool equal) {
    auto const make = [size, equal] {
        Database database;
        database.load("a", rowsOf(size));
        database.load("b", rightRows(size, equal));
        return database;
    };
    return once(2 * size + (equal ? 1 : 0), make);
}

char const* const anyDiffers = " FROM a JOIN b ON b.rowid = a.rowid WHERE a.id IS NOT b.id OR "
                               "a.name IS NOT b.name OR a.city IS NOT b.city OR "
                               "a.amount IS NOT b.amount OR a.crates IS NOT b.crates";

/// One pass over both tables for the rows that differ, then the cells of these.
Prepare bySqlite(bool equal) {
    std::string query = "WITH d AS MATERIALIZED (SELECT a.rowid AS number";
    for (char const* column : columns) {
        query += std::string(", a.") + column + " AS l" + column + ", b." + column + " AS r" + column;
    }
    query += std::string(anyDiffers) + ")";
    char const* separator = " ";
    for (char const* column : columns) {
        std::string const left = std::string("l") + column;
        std::string const right = std::string("r") + column;
        query += separator + ("SELECT '/" + std::string(column)) + "[' || number || ']', " + left +
                 ", " + right + " FROM d WHERE " + left + " IS NOT " + right;
        separator = " UNION ALL ";
    }
    return [equal, query](std::size_t size) {
        return job([&both = bothDatabase(size, equal), query] { return Made(both, query); },
                   [](Made const& made) { return made.answer(Order::Any, 2); });
    };
}

Prepare byJson(bool equal) {
    return [equal](std::size_t size) {
        return job([left = jsonOf(rowsOf(size)),
                    right = jsonOf(rightRows(size, equal))] { return Json::diff(left, right); },
                   [](Json const& patch) {
                       Tally tally(Order::Any);
                       for (Json const& step : patch) {
                           take(tally, step["value"]);
                           tally.endRow();
                       }
                       return tally.answer();
                   });
    };
}

Prepare matchByQx() {
    return [](std::size_t size) {
        return job([left = tableOnce(size),
                    right = tableOf(rowsOf(size))] { return left->match(right, false); },
                   [](bool equal) { return single(equal ? 1 : 0); });
    };
}

Prepare matchBySqlite() {
    return [](std::size_t size) {
        auto const query = std::make_shared<Statement>(
            bothDatabase(size, true)
                .prepare(std::string("SELECT NOT EXISTS (SELECT 1") + anyDiffers + ")"));
        return job(
            [query] {
                query->step();
                bool const equal = sqlite3_column_int(query->get(), 0) != 0;
                query->reset();
                return equal;
            },
            [](bool equal) { return single(equal ? 1 : 0); });
    };
}

template <typename Make>
Prepare matchBy(Make make) {
    return [make](std::size_t size) {
        return job([left = make(rowsOf(size)), right = make(rowsOf(size))] { return left == right; },
                   [](bool equal) { return single(equal ? 1 : 0); });
    };
}

} // namespace

void addCompare() {
    add({"compare/equal tables", n, byQx(true), {{"sqlite", bySqlite(true)}, {"json", byJson(true)}}});
    add({"compare/one row in 100 differs",
         n,
         byQx(false),
         {{"sqlite", bySqlite(false)}, {"json", byJson(false)}}});
    add({"compare/match equal tables",
         n,
         matchByQx(),
         {{"sqlite", matchBySqlite()},
          {"json", matchBy(jsonOf)},
          {"plain", matchBy([](Rows const& rows) { return Rows(rows); })}}});
}

} // namespace Bench
