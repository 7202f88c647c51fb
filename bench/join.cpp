// Tables of orders put below, beside and over each other.

#include "families.h"
#include "rows.h"
#include "sqlite.h"
#include "workload.h"

#include <optional>

namespace Bench {

namespace {

std::size_t const n = 100'000;

auto const tableAnswer = [](Ptr<Table> const& table) { return answerOf(*table); };
auto const madeAnswer = [](Made const& made) { return made.answer(Order::Kept); };
auto const rowsAnswer = [](Rows const& rows) { return answerOf(rows); };

/// n other rows, made once.
Rows const& otherRows(std::size_t size) {
    return once(size, [size] { return makeRows(size, 2); });
}

/// The database of rowsOf(n) with otherRows(n) as "others", made once.
Database const& pairDatabase(std::size_t size) {
    static std::map<std::size_t, Database const*> loaded;
    Database const*& database = loaded[size];
    if (database == nullptr) {
        database = &ordersDatabase(size);
        database->load("others", otherRows(size));
    }
    return *database;
}

Ptr<Table> const& otherTable(std::size_t size) {
    return once(size, [size] { return tableOf(otherRows(size)); });
}

Prepare querying(char const* query) {
    return [query](std::size_t size) {
        return job([&orders = pairDatabase(size), query] { return Made(orders, query); }, madeAnswer);
    };
}

/// Runs `combine` on the tables of rowsOf(n) and otherRows(n).
template <typename Combine>
Prepare byQx(Combine combine) {
    return [combine](std::size_t size) {
        return job(
            [combine, table = tableOnce(size), operand = Ptr<Table const>(otherTable(size))] {
                Ptr<Table> made;
                combine(*table, operand, made);
                return made;
            },
            tableAnswer);
    };
}

void addAppend() {
    Prepare const json = [](std::size_t size) {
        return job(
            [first = jsonOf(rowsOf(size)), second = jsonOf(otherRows(size))] {
                Json all = first;
                for (auto& [column, values] : all.items()) {
                    values.insert(values.end(), second[column].begin(), second[column].end());
                }
                return all;
            },
            [](Json const& all) { return answerOf(all); });
    };
    Prepare const plain = [](std::size_t size) {
        return job(
            [&first = rowsOf(size), &second = otherRows(size)] {
                Rows all;
                all.reserve(first.size() + second.size());
                all.insert(all.end(), first.begin(), first.end());
                all.insert(all.end(), second.begin(), second.end());
                return all;
            },
            rowsAnswer);
    };
    add({"join/append",
         n / 2,
         byQx([](Table const& table, Ptr<Table const> const& operand, Ptr<Table>& made) {
             (void)table.append(operand, made, true, false);
         }),
         {{"sqlite", querying("SELECT * FROM orders UNION ALL SELECT * FROM others")},
          {"json", json},
          {"plain", plain}}});
}

void addMerge() {
    using Pairs = std::vector<std::pair<Row, Row>>;
    Prepare const plain = [](std::size_t size) {
        return job(
            [&first = rowsOf(size), &second = otherRows(size)] {
                Pairs pairs;
                pairs.reserve(first.size());
                for (std::size_t i = 0; i < first.size(); ++i) {
                    pairs.emplace_back(first[i], second[i]);
                }
                return pairs;
            },
            [](Pairs const& pairs) {
                Tally tally;
                for (auto const& [left, right] : pairs) {
                    for (Row const& row : {left, right}) {
                        tally << row.id << row.name << row.city << row.amount << row.crates;
                    }
                    tally.endRow();
                }
                return tally.answer();
            });
    };
    add({"join/merge side by side",
         n / 2,
         byQx([](Table const& table, Ptr<Table const> const& operand, Ptr<Table>& made) {
             (void)table.merge(operand, made, false);
         }),
         {{"sqlite", querying("SELECT a.*, b.* FROM orders a JOIN others b ON b.rowid = a.rowid")},
          {"plain", plain}}});
}

/// What to lay over two columns of every second row.
struct Patch {
    double amount = 0;
    double crates = 0;
};
using Patches = std::vector<std::optional<Patch>>;

Patches patchesOf(std::size_t size) {
    Patches patches(size);
    for (std::size_t i = 0; i < size; i += 2) {
        patches[i] = Patch{otherRows(size)[i].amount, otherRows(size)[i].crates};
    }
    return patches;
}

void loadPatches(Database const& orders, Patches const& patches) {
    orders.execute("CREATE TABLE patch (amount REAL, crates INTEGER)");
    Statement some = orders.prepare("INSERT INTO patch VALUES (?, ?)");
    Statement none = orders.prepare("INSERT INTO patch VALUES (NULL, NULL)");
    for (auto const& patch : patches) {
        if (patch) {
            some.bind(1, patch->amount);
            some.bind(2, patch->crates);
        }
        (patch ? some : none).step();
    }
}

Ptr<Table> tableOfPatches(Patches const& patches) {
    Ptr<Table> const table(new Table("patch"));
    table->at("amount", 0);
    table->at("crates", 0);
    for (auto const& patch : patches) {
        table->at(0, Table::npos) = patch ? QX::Cell(patch->amount) : QX::Cell();
        table->at(1, Table::npos) = patch ? QX::Cell(patch->crates) : QX::Cell();
    }
    return table;
}

void addOverlay() {
    Prepare const qx = [](std::size_t size) {
        return job(
            [table = tableOnce(size), operand = tableOfPatches(patchesOf(size))] {
                Ptr<Table> made;
                (void)table->overlay(operand, made, true, false, false);
                return made;
            },
            tableAnswer);
    };
    Prepare const sqlite = [](std::size_t size) {
        Database const& orders = ordersDatabase(size);
        loadPatches(orders, patchesOf(size));
        return job(
            [&orders] {
                return Made(orders, "SELECT id, name, city, coalesce(b.amount, a.amount), "
                                    "coalesce(b.crates, a.crates) "
                                    "FROM orders a JOIN patch b ON b.rowid = a.rowid");
            },
            madeAnswer);
    };
    Prepare const plain = [](std::size_t size) {
        return job(
            [&rows = rowsOf(size), patches = patchesOf(size)] {
                Rows made = rows;
                for (std::size_t i = 0; i < made.size(); ++i) {
                    if (patches[i]) {
                        made[i].amount = patches[i]->amount;
                        made[i].crates = patches[i]->crates;
                    }
                }
                return made;
            },
            rowsAnswer);
    };
    add({"join/overlay two columns", n, qx, {{"sqlite", sqlite}, {"plain", plain}}});
}

void addFill() {
    Prepare const qx = [](std::size_t size) {
        return job(
            [table = tableOnce(size), operand = valuesTable("state", {Str("open")})] {
                Ptr<Table> made;
                (void)table->fill(operand, made, -1);
                return made;
            },
            tableAnswer);
    };
    Prepare const sqlite = [](std::size_t size) {
        return job(
            [&orders = ordersDatabase(size)] { return Made(orders, "SELECT *, 'open' FROM orders"); },
            madeAnswer);
    };
    add({"join/fill a column", n, qx, {{"sqlite", sqlite}}});
}

} // namespace

void addJoin() {
    addAppend();
    addMerge();
    addOverlay();
    addFill();
}

} // namespace Bench
