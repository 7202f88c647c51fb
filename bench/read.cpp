// Reading single values of a table of orders, its rows in random order: the sum of one column, and the
// lengths of another.

#include "families.h"
#include "rows.h"
#include "sqlite.h"
#include "workload.h"

namespace Bench {

namespace {

std::size_t const n = 50'000;

auto const sumAnswer = [](double sum) { return single(std::round(sum * 100)); };

/// The rows in the order of their ids, which is random.
std::vector<std::size_t> shuffled(std::size_t size) {
    std::vector<std::size_t> order(size);
    for (std::size_t i = 0; i < size; ++i) {
        order[i] = static_cast<std::size_t>(rowsOf(size)[i].id) - 1;
    }
    return order;
}

/// Sums what `read` reads of `source` at every row.
template <typename Source, typename Read>
Job summing(Source source, std::size_t size, Read read) {
    return job(
        [source, order = shuffled(size), read] {
            double sum = 0;
            for (std::size_t const row : order) {
                sum += read(*source, row);
            }
            return sum;
        },
        sumAnswer);
}

template <typename Read>
Prepare fromTable(Read read) {
    return [read](std::size_t size) {
        return summing(Ptr<Table const>(tableOf(rowsOf(size))), size, read);
    };
}

template <typename Read>
Prepare fromJson(Read read) {
    return [read](std::size_t size) {
        return summing(std::make_shared<Json const>(jsonOf(rowsOf(size))), size, read);
    };
}

template <typename Read>
Prepare fromRows(Read read) {
    return [read](std::size_t size) { return summing(&rowsOf(size), size, read); };
}

Prepare fromDatabase(char const* query) {
    return [query](std::size_t size) {
        auto const select = std::make_shared<Statement>(ordersDatabase(size).prepare(query));
        return summing(select, size, [](Statement& row, std::size_t number) {
            row.bind(1, static_cast<double>(number + 1));
            row.step();
            double const value = sqlite3_column_double(row.get(), 0);
            row.reset();
            return value;
        });
    };
}

double numberOf(QX::Cell const& cell) {
    double number = 0;
    (void)cell.get(number);
    return number;
}

double lengthOf(QX::Cell const& cell) {
    Str text;
    (void)cell.get(text, 0);
    return static_cast<double>(text.size());
}

} // namespace

void addRead() {
    auto const plainAmount =
        fromRows([](Rows const& rows, std::size_t row) { return rows[row].amount; });
    auto const sqlAmount = fromDatabase("SELECT amount FROM orders WHERE rowid = ?");
    add({"read/numbers by number",
         n,
         fromTable([](Table const& table, std::size_t row) { return numberOf(table.get(3, row + 1)); }),
         {{"sqlite", sqlAmount}, {"plain", plainAmount}}});
    add({"read/numbers by name",
         n,
         fromTable(
             [](Table const& table, std::size_t row) { return numberOf(table.get("amount", row + 1)); }),
         {{"sqlite", sqlAmount},
          {"json", fromJson([](Json const& object, std::size_t row) {
               return object["amount"][row].get<double>();
           })},
          {"plain", plainAmount}}});
    add({"read/texts by name",
         n,
         fromTable(
             [](Table const& table, std::size_t row) { return lengthOf(table.get("name", row + 1)); }),
         {{"sqlite", fromDatabase("SELECT length(name) FROM orders WHERE rowid = ?")},
          {"json", fromJson([](Json const& object, std::size_t row) {
               return static_cast<double>(object["name"][row].get<std::string>().size());
           })},
          {"plain", fromRows([](Rows const& rows, std::size_t row) {
               return static_cast<double>(std::string(rows[row].name).size());
           })}}});
}

} // namespace Bench
