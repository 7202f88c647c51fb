#pragma once

#include "answer.h"

#include <nlohmann/json.hpp>
#include <qx/qx.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace Bench {

using QX::Ptr;
using QX::Str;
using QX::Table;
using Json = nlohmann::json;

/// One order of a made-up shop, as plain C++ holds it.
struct Row {
    double id = 0;     ///< 1 to n, shuffled
    std::string name;  ///< of the customer, 10 to 30 characters, no two alike
    std::string city;  ///< one of 60
    double amount = 0; ///< in cents, as a fraction; nearly all differ
    double crates = 0; ///< 1 to 100

    friend bool operator==(Row const& left, Row const& right) = default;
};
using Rows = std::vector<Row>;

inline constexpr std::array<char const*, 5> columns = {"id", "name", "city", "amount", "crates"};

/// The same n rows whenever asked; other seeds give other rows.
Rows makeRows(std::size_t n, std::uint64_t seed = 1);
/// The rows of seed 1, made once.
Rows const& rowsOf(std::size_t n);
/// The rows of rowsOf(n) with one value in a hundred rows changed, made once.
Rows const& changedRows(std::size_t n);
/// The first half of rowsOf(n) twice over, in random order, made once.
Rows const& repeatedRows(std::size_t n);
/// One of the sixty cities.
char const* city(std::size_t i);

/// A new table of these rows, every cell with a body of its own.
Ptr<Table> tableOf(Rows const& rows);
/// The table of rowsOf(n), made once.
Ptr<Table> const& tableOnce(std::size_t n);
/// An object of one array for each column.
Json jsonOf(Rows const& rows);

/// An operand that names indices, and lists values behind the first name.
Ptr<Table> namesTable(std::vector<std::string> const& names);
Ptr<Table> valuesTable(char const* name, std::vector<QX::Cell> const& values);

Answer answerOf(Rows const& rows, Order order = Order::Kept);
/// The rows of a table; the row of names does not count.
Answer answerOf(Table const& table, Order order = Order::Kept);
/// The rows of an object of arrays, in the order of `columns`.
Answer answerOf(Json const& object, Order order = Order::Kept);
/// Takes in a cell of any kind.
void take(Tally& tally, QX::Cell const& cell);
void take(Tally& tally, Json const& value);

} // namespace Bench
