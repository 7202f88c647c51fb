// Tables of orders: made row by row, copied and dropped. What is timed leaves out dropping what was
// made, which is a workload of its own.

#include "families.h"
#include "rows.h"
#include "sqlite.h"
#include "workload.h"

#include <charconv>

namespace Bench {

namespace {

std::size_t const n = 50'000;

auto const tableAnswer = [](Ptr<Table> const& table) { return answerOf(*table); };
auto const jsonAnswer = [](Json const& object) { return answerOf(object); };
auto const rowsAnswer = [](Rows const& rows) { return answerOf(rows); };
auto const databaseAnswer = [](Database const& database) { return answerOf(database, "orders"); };

Ptr<Table> tableByName(Rows const& rows) {
    Ptr<Table> const table(new Table("orders"));
    std::size_t item = 0;
    for (Row const& row : rows) {
        ++item;
        table->at("id", item) = row.id;
        table->at("name", item) = Str(row.name);
        table->at("city", item) = Str(row.city);
        table->at("amount", item) = row.amount;
        table->at("crates", item) = row.crates;
    }
    return table;
}

Json jsonByName(Rows const& rows) {
    Json object = Json::object();
    for (Row const& row : rows) {
        object["id"].push_back(row.id);
        object["name"].push_back(row.name);
        object["city"].push_back(row.city);
        object["amount"].push_back(row.amount);
        object["crates"].push_back(row.crates);
    }
    return object;
}

Rows grown(Rows const& rows) {
    Rows copy;
    for (Row const& row : rows) {
        copy.push_back(row);
    }
    return copy;
}

/// The orders as the texts of a file's fields.
using Texts = std::vector<std::array<Str, 5>>;

Texts textsOf(Rows const& rows) {
    Texts texts;
    texts.reserve(rows.size());
    for (Row const& row : rows) {
        texts.push_back({Str::asString(row.id), Str(row.name), Str(row.city), Str::asString(row.amount),
                         Str::asString(row.crates)});
    }
    return texts;
}

Ptr<Table> tableFromTexts(Texts const& texts) {
    Ptr<Table> const table(new Table("orders"));
    for (std::size_t i = 0; i < columns.size(); ++i) {
        table->at(i, 0) = Str(columns[i]);
    }
    for (auto const& row : texts) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            table->at(i, Table::npos) = row[i];
        }
    }
    return table;
}

double number(Str const& text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

Rows rowsFromTexts(Texts const& texts) {
    Rows rows;
    for (auto const& [id, name, city, amount, crates] : texts) {
        rows.push_back({number(id), name.get(), city.get(), number(amount), number(crates)});
    }
    return rows;
}

Database databaseFromTexts(Texts const& texts) {
    Database database;
    database.execute(
        "CREATE TABLE orders (id INTEGER, name TEXT, city TEXT, amount REAL, crates INTEGER)");
    database.execute("BEGIN");
    Statement insert = database.prepare("INSERT INTO orders VALUES (?, ?, ?, ?, ?)");
    for (auto const& row : texts) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            insert.bind(static_cast<int>(i + 1), row[i].get(), row[i].size());
        }
        insert.step();
    }
    database.execute("COMMIT");
    return database;
}

Database databaseOf(Rows const& rows) {
    Database database;
    database.load("orders", rows);
    return database;
}

/// Makes a thing of rowsOf(n).
template <typename Make, typename Look>
Prepare fromRows(Make make, Look look) {
    return [make, look](std::size_t size) {
        return job([make, &rows = rowsOf(size)] { return make(rows); }, look);
    };
}

template <typename Make, typename Look>
Prepare fromTexts(Make make, Look look) {
    return [make, look](std::size_t size) {
        return job([make, texts = textsOf(rowsOf(size))] { return make(texts); }, look);
    };
}

void addWriting() {
    Prepare const sqlite = fromRows(databaseOf, databaseAnswer);
    Prepare const plain = fromRows(grown, rowsAnswer);
    add({"build/by number",
         n,
         fromRows(tableOf, tableAnswer),
         {{"sqlite", sqlite}, {"json", fromRows(jsonOf, jsonAnswer)}, {"plain", plain}},
         Timed::Making});
    add({"build/by name",
         n,
         fromRows(tableByName, tableAnswer),
         {{"sqlite", sqlite}, {"json", fromRows(jsonByName, jsonAnswer)}, {"plain", plain}},
         Timed::Making});
    add({"build/from texts",
         n,
         fromTexts(tableFromTexts, tableAnswer),
         {{"sqlite", fromTexts(databaseFromTexts, databaseAnswer)},
          {"plain", fromTexts(rowsFromTexts, rowsAnswer)}},
         Timed::Making});
}

void addCopying() {
    add({"build/copy",
         n,
         [](std::size_t size) {
             return job([table = tableOf(rowsOf(size))] { return table->clone(); }, tableAnswer);
         },
         {{"sqlite",
           [](std::size_t size) {
               return job(
                   [&orders = ordersDatabase(size)] { return Made(orders, "SELECT * FROM orders"); },
                   [](Made const& made) { return made.answer(Order::Kept); });
           }},
          {"json",
           [](std::size_t size) {
               return job([object = jsonOf(rowsOf(size))] { return Json(object); }, jsonAnswer);
           }},
          {"plain", fromRows([](Rows const& rows) { return Rows(rows); }, rowsAnswer)}},
         Timed::Making});
}

void addDropping() {
    add({"build/destroy",
         n,
         fromRows(tableOf, tableAnswer),
         {{"sqlite", fromRows(databaseOf, databaseAnswer)},
          {"json", fromRows(jsonOf, jsonAnswer)},
          {"plain", fromRows(grown, rowsAnswer)}},
         Timed::Dropping});
}

} // namespace

void addBuild() {
    addWriting();
    addCopying();
    addDropping();
}

} // namespace Bench
