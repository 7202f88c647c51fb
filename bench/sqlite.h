#pragma once

#include "answer.h"
#include "rows.h"

#include <sqlite3.h>

#include <memory>
#include <string>

namespace Bench {

/// A prepared statement.
class Statement {
public:
    Statement(sqlite3* database, std::string const& text);

    void bind(int parameter, double value);
    void bind(int parameter, char const* text, std::size_t size);
    void bind(int parameter, std::string const& value) { bind(parameter, value.data(), value.size()); }
    /// Goes to the next row; false when there is none, and then the statement may be run again.
    bool step();
    /// Leaves out the rows that are left, so that the statement may be run again.
    void reset() { sqlite3_reset(get()); }
    sqlite3_stmt* get() const { return statement_.get(); }

private:
    std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement_;
};

/// A database in memory, set up for speed: no journal, no file for anything, no locks.
class Database {
public:
    Database();

    void execute(std::string const& text) const;
    Statement prepare(std::string const& text) const { return {database_.get(), text}; }
    /// Makes a table of orders with a key of its own for every row, filled in one transaction.
    void load(std::string const& name, Rows const& rows) const;

private:
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> database_;
};

/// The rows of a table of the database, its columns from number `first` on.
Answer answerOf(Database const& database, char const* table, Order order = Order::Kept, int first = 0);

/// A table made by a query, dropped in the end.
class Made {
public:
    Made(Database const& database, std::string const& query);
    Made(Made&&) = default;
    ~Made();

    Answer answer(Order order, int first = 0) const {
        return answerOf(*database_, "made", order, first);
    }

private:
    struct Nothing {
        void operator()(Database const*) const {}
    };
    std::unique_ptr<Database const, Nothing> database_;
};

/// A database that holds rowsOf(n) as "orders", made once.
Database const& ordersDatabase(std::size_t n);

} // namespace Bench
