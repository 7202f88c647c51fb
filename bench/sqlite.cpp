#include "sqlite.h"

#include "workload.h"

#include <stdexcept>

namespace Bench {

namespace {

[[noreturn]] void fail(sqlite3* database) {
    throw std::runtime_error(sqlite3_errmsg(database));
}

sqlite3* openInMemory() {
    sqlite3* database = nullptr;
    int const flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(":memory:", &database, flags, nullptr) != SQLITE_OK) {
        fail(database);
    }
    return database;
}

sqlite3_stmt* prepared(sqlite3* database, std::string const& text) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, text.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
        fail(database);
    }
    return statement;
}

void take(Tally& tally, sqlite3_stmt* row, int column) {
    if (sqlite3_column_type(row, column) == SQLITE_TEXT) {
        auto const* text = reinterpret_cast<char const*>(sqlite3_column_text(row, column));
        tally << std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(row, column)));
    } else {
        tally << sqlite3_column_double(row, column);
    }
}

} // namespace

Statement::Statement(sqlite3* database, std::string const& text)
    : statement_(prepared(database, text), &sqlite3_finalize) {
}

void Statement::bind(int parameter, double value) {
    sqlite3_bind_double(get(), parameter, value);
}

void Statement::bind(int parameter, char const* text, std::size_t size) {
    sqlite3_bind_text(get(), parameter, text, static_cast<int>(size), SQLITE_STATIC);
}

bool Statement::step() {
    int const state = sqlite3_step(get());
    if (state == SQLITE_ROW) {
        return true;
    }
    if (state != SQLITE_DONE) {
        fail(sqlite3_db_handle(get()));
    }
    sqlite3_reset(get());
    return false;
}

Database::Database() : database_(openInMemory(), &sqlite3_close) {
    execute("PRAGMA journal_mode = OFF; PRAGMA temp_store = MEMORY; PRAGMA locking_mode = EXCLUSIVE");
}

void Database::execute(std::string const& text) const {
    if (sqlite3_exec(database_.get(), text.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        fail(database_.get());
    }
}

void Database::load(std::string const& name, Rows const& rows) const {
    execute("CREATE TABLE " + name + " (id INTEGER, name TEXT, city TEXT, amount REAL, crates INTEGER)");
    execute("BEGIN");
    Statement insert = prepare("INSERT INTO " + name + " VALUES (?, ?, ?, ?, ?)");
    for (Row const& row : rows) {
        insert.bind(1, row.id);
        insert.bind(2, row.name);
        insert.bind(3, row.city);
        insert.bind(4, row.amount);
        insert.bind(5, row.crates);
        insert.step();
    }
    execute("COMMIT");
}

Made::Made(Database const& database, std::string const& query) : database_(&database) {
    database.execute("CREATE TABLE made AS " + query);
}

Made::~Made() {
    if (database_) {
        database_->execute("DROP TABLE made");
    }
}

Answer answerOf(Database const& database, char const* table, Order order, int first) {
    Tally tally(order);
    Statement rows = database.prepare(std::string("SELECT * FROM ") + table + " ORDER BY rowid");
    while (rows.step()) {
        for (int i = first; i < sqlite3_column_count(rows.get()); ++i) {
            take(tally, rows.get(), i);
        }
        tally.endRow();
    }
    return tally.answer();
}

Database const& ordersDatabase(std::size_t n) {
    return once(n, [n] {
        Database database;
        database.load("orders", rowsOf(n));
        return database;
    });
}

} // namespace Bench
