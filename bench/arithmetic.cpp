// Tables of five indices of numbers: added cell by cell, summed, and made into a template.

#include "families.h"
#include "rows.h"
#include "sqlite.h"
#include "workload.h"

#include <array>
#include <cmath>

namespace Bench {

namespace {

std::size_t const n = 100'000;

using Numbers = std::vector<std::array<double, 5>>;

Numbers const& numbersOf(std::size_t size) {
    return once(size, [size] {
        Numbers numbers;
        numbers.reserve(size);
        for (Row const& row : rowsOf(size)) {
            double const cents = std::round(row.amount * 100);
            numbers.push_back({row.amount, row.crates, (cents + row.id) / 100, cents, row.id / 8});
        }
        return numbers;
    });
}

Ptr<Table const> numbersTable(std::size_t size) {
    Ptr<Table> const table(new Table("numbers"));
    for (std::size_t i = 0; i < 5; ++i) {
        table->at(i, 0) = Str("column " + std::to_string(i));
        for (auto const& row : numbersOf(size)) {
            table->at(i, Table::npos) = row[i];
        }
    }
    return table;
}

void loadNumbers(Database const& database, std::string const& name, std::size_t size) {
    database.execute("CREATE TABLE " + name + " (c0 REAL, c1 REAL, c2 REAL, c3 REAL, c4 REAL)");
    Statement insert = database.prepare("INSERT INTO " + name + " VALUES (?, ?, ?, ?, ?)");
    for (auto const& row : numbersOf(size)) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            insert.bind(static_cast<int>(i + 1), row[i]);
        }
        insert.step();
    }
}

Database const& numbersDatabase(std::size_t size) {
    return once(size, [size] {
        Database database;
        loadNumbers(database, "a", size);
        loadNumbers(database, "b", size);
        return database;
    });
}

Ptr<Table const> templateOf(Ptr<Table const> const& table) {
    Ptr<Table> made;
    (void)table->makeTemplate(table, made);
    return made;
}

Prepare addingByQx() {
    return [](std::size_t size) {
        Ptr<Table const> const left = numbersTable(size);
        return job(
            [left, right = numbersTable(size), marks = templateOf(left)] {
                Ptr<Table> added;
                (void)left->operation(right, "+", marks, added);
                return added;
            },
            [](Ptr<Table> const& added) { return answerOf(*added); });
    };
}

Prepare addingBySqlite() {
    return [](std::size_t size) {
        return job(
            [&database = numbersDatabase(size)] {
                return Made(database,
                            "SELECT a.c0 + b.c0, a.c1 + b.c1, a.c2 + b.c2, a.c3 + b.c3, a.c4 + b.c4 "
                            "FROM a JOIN b ON b.rowid = a.rowid");
            },
            [](Made const& made) { return made.answer(Order::Kept); });
    };
}

Prepare addingByPlain() {
    return [](std::size_t size) {
        return job(
            [left = numbersOf(size), right = numbersOf(size)] {
                Numbers added(left.size());
                for (std::size_t i = 0; i < added.size(); ++i) {
                    for (std::size_t k = 0; k < 5; ++k) {
                        added[i][k] = left[i][k] + right[i][k];
                    }
                }
                return added;
            },
            [](Numbers const& added) {
                Tally tally;
                for (auto const& row : added) {
                    for (double const value : row) {
                        tally << value;
                    }
                    tally.endRow();
                }
                return tally.answer();
            });
    };
}

Answer rounded(double sum) {
    return single(std::round(sum * 8) / 8);
}

void addSum() {
    Prepare const qx = [](std::size_t size) {
        Ptr<Table const> const table = numbersTable(size);
        return job(
            [table, marks = templateOf(table)] {
                double sum = 0;
                (void)table->unaryOperation("+", marks, sum);
                return sum;
            },
            rounded);
    };
    Prepare const sqlite = [](std::size_t size) {
        auto const query = std::make_shared<Statement>(numbersDatabase(size).prepare(
            "SELECT total(c0) + total(c1) + total(c2) + total(c3) + total(c4) FROM a"));
        return job(
            [query] {
                query->step();
                double const sum = sqlite3_column_double(query->get(), 0);
                query->reset();
                return sum;
            },
            rounded);
    };
    Prepare const plain = [](std::size_t size) {
        return job(
            [&numbers = numbersOf(size)] {
                double sum = 0;
                for (auto const& row : numbers) {
                    for (double const value : row) {
                        sum += value;
                    }
                }
                return sum;
            },
            rounded);
    };
    add({"arithmetic/sum of all numbers", n, qx, {{"sqlite", sqlite}, {"plain", plain}}});
}

} // namespace

void addArithmetic() {
    add({"arithmetic/add two tables",
         n,
         addingByQx(),
         {{"sqlite", addingBySqlite()}, {"plain", addingByPlain()}}});
    addSum();
    add({"arithmetic/make a template",
         n,
         [](std::size_t size) {
             return job([left = numbersTable(size)] { return templateOf(left); },
                        [](Ptr<Table const> const& marks) { return answerOf(*marks); });
         },
         {}});
}

} // namespace Bench
