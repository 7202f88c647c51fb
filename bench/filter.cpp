// Picking rows of a table of orders by value: few or many values, to be kept or to be left out.

#include "families.h"
#include "rows.h"
#include "sqlite.h"
#include "workload.h"

#include <unordered_set>

namespace Bench {

namespace {

std::size_t const n = 100'000;

/// The values of one column in every `step`th row.
template <typename T>
std::vector<T> valuesOf(std::size_t size, T Row::*column, std::size_t step) {
    std::vector<T> values;
    for (std::size_t i = 0; i < size; i += step) {
        values.push_back(rowsOf(size)[i].*column);
    }
    return values;
}

QX::Cell cellOf(double value) {
    return value;
}
QX::Cell cellOf(std::string const& value) {
    return Str(value);
}

/// A filter on one column; `values` makes the values for so many rows.
template <typename T, typename Values>
void addFiltered(std::string const& name, char const* column, T Row::*member, Values values,
                 bool exclude) {
    Prepare const qx = [=](std::size_t size) {
        std::vector<QX::Cell> cells;
        for (T const& value : values(size)) {
            cells.push_back(cellOf(value));
        }
        return job(
            [table = tableOnce(size), operand = valuesTable(column, cells), exclude] {
                Ptr<Table> picked;
                (void)table->filter(operand, picked, true, exclude);
                return picked;
            },
            [](Ptr<Table> const& picked) { return answerOf(*picked, Order::Any); });
    };
    Prepare const sqlite = [=](std::size_t size) {
        std::string const held =
            "picked" + std::to_string(size) + column + std::to_string(values(size).size());
        Database const& orders = ordersDatabase(size);
        orders.execute("DROP TABLE IF EXISTS " + held + "; CREATE TABLE " + held + " (value); BEGIN");
        Statement insert = orders.prepare("INSERT INTO " + held + " VALUES (?)");
        for (T const& value : values(size)) {
            insert.bind(1, value);
            insert.step();
        }
        orders.execute("COMMIT");
        std::string const query = std::string("SELECT * FROM orders WHERE ") + column +
                                  (exclude ? " NOT IN" : " IN") + " (SELECT value FROM " + held + ")";
        return job([&orders, query] { return Made(orders, query); },
                   [](Made const& made) { return made.answer(Order::Any); });
    };
    Prepare const plain = [=](std::size_t size) {
        return job(
            [&rows = rowsOf(size), wanted = values(size), member, exclude] {
                std::unordered_set<T> const set(wanted.begin(), wanted.end());
                Rows picked;
                for (Row const& row : rows) {
                    if (set.contains(row.*member) != exclude) {
                        picked.push_back(row);
                    }
                }
                return picked;
            },
            [](Rows const& picked) { return answerOf(picked, Order::Any); });
    };
    add({"filter/" + name, n, qx, {{"sqlite", sqlite}, {"plain", plain}}});
}

} // namespace

void addFilter() {
    auto const cities = [](std::size_t) {
        return std::vector<std::string>{city(7), city(20), city(41)};
    };
    auto const names = [](std::size_t size) { return valuesOf(size, &Row::name, 4); };
    auto const ids = [](std::size_t size) { return valuesOf(size, &Row::id, 4); };
    addFiltered("keep 3 texts", "city", &Row::city, cities, false);
    addFiltered("keep a quarter by text", "name", &Row::name, names, false);
    addFiltered("keep a quarter by number", "id", &Row::id, ids, false);
    addFiltered("leave out 3 texts", "city", &Row::city, cities, true);
    addFiltered("leave out a quarter by text", "name", &Row::name, names, true);
    addFiltered("leave out a quarter by number", "id", &Row::id, ids, true);
}

} // namespace Bench
