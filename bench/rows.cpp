#include "rows.h"

#include "workload.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Bench {

namespace {

/// Numbers below a bound, the same with every standard library.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}

    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(engine_() % bound); }
    template <typename T>
    void shuffle(std::vector<T>& values) {
        for (std::size_t i = values.size(); i > 1; --i) {
            std::swap(values[i - 1], values[below(i)]);
        }
    }

private:
    std::mt19937_64 engine_;
};

constexpr std::array<char const*, 24> syllables = {
    "ka",  "lo",  "mir", "sen", "ta",  "ru",  "bel", "an",  "dor", "vi", "hal", "es",
    "per", "min", "jo",  "gre", "sto", "wen", "li",  "bra", "on",  "fe", "qui", "zar"};

/// A word of the digits of `number` as syllables: other numbers give other words.
std::string word(std::size_t number) {
    std::string text;
    do {
        text += syllables[number % syllables.size()];
        number /= syllables.size();
    } while (number != 0);
    text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

std::vector<std::string> const& cities() {
    static std::vector<std::string> const all = [] {
        std::vector<std::string> made;
        for (std::size_t i = 0; i < 60; ++i) {
            made.push_back(word(577 * (i + 1)) + (i % 4 == 0 ? " upon " + word(i + 3) : ""));
        }
        return made;
    }();
    return all;
}

} // namespace

char const* city(std::size_t i) {
    return cities()[i].c_str();
}

Rows makeRows(std::size_t n, std::uint64_t seed) {
    Dice dice(seed);
    std::vector<double> ids(n);
    std::iota(ids.begin(), ids.end(), 1.0);
    dice.shuffle(ids);
    Rows rows(n);
    for (std::size_t i = 0; i < n; ++i) {
        Row& row = rows[i];
        row.id = ids[i];
        row.name = word(dice.below(331776)) + ' ' + word(dice.below(24)) + ' ' +
                   word(static_cast<std::size_t>(ids[i]) + 13824 * seed);
        row.city = cities()[dice.below(cities().size())];
        row.amount = static_cast<double>(dice.below(10'000'000)) / 100;
        row.crates = static_cast<double>(1 + dice.below(100));
    }
    return rows;
}

Rows const& rowsOf(std::size_t n) {
    return once(n, [n] { return makeRows(n); });
}

Rows const& changedRows(std::size_t n) {
    return once(n, [n] {
        Rows rows = rowsOf(n);
        for (std::size_t i = 0; i < n; i += 100) {
            (i % 200 == 0 ? rows[i].crates : rows[i].amount) += 1;
        }
        return rows;
    });
}

Rows const& repeatedRows(std::size_t n) {
    return once(n, [n] {
        Rows rows = rowsOf(n);
        std::copy_n(rows.begin(), n / 2, rows.begin() + static_cast<std::ptrdiff_t>(n - n / 2));
        Dice(2).shuffle(rows);
        return rows;
    });
}

Ptr<Table> tableOf(Rows const& rows) {
    Ptr<Table> const table(new Table("orders"));
    for (std::size_t i = 0; i < columns.size(); ++i) {
        table->at(i, 0) = Str(columns[i]);
    }
    for (Row const& row : rows) {
        table->at(0, Table::npos) = row.id;
        table->at(1, Table::npos) = Str(row.name);
        table->at(2, Table::npos) = Str(row.city);
        table->at(3, Table::npos) = row.amount;
        table->at(4, Table::npos) = row.crates;
    }
    return table;
}

Ptr<Table> const& tableOnce(std::size_t n) {
    return once(n, [n] { return tableOf(rowsOf(n)); });
}

Json jsonOf(Rows const& rows) {
    Json::array_t ids;
    Json::array_t names;
    Json::array_t cities;
    Json::array_t amounts;
    Json::array_t crates;
    for (Row const& row : rows) {
        ids.emplace_back(row.id);
        names.emplace_back(row.name);
        cities.emplace_back(row.city);
        amounts.emplace_back(row.amount);
        crates.emplace_back(row.crates);
    }
    Json object = Json::object();
    object["id"] = std::move(ids);
    object["name"] = std::move(names);
    object["city"] = std::move(cities);
    object["amount"] = std::move(amounts);
    object["crates"] = std::move(crates);
    return object;
}

Ptr<Table> namesTable(std::vector<std::string> const& names) {
    Ptr<Table> const table(new Table("names"));
    for (std::string const& name : names) {
        table->at(Str(name), 0);
    }
    return table;
}

Ptr<Table> valuesTable(char const* name, std::vector<QX::Cell> const& values) {
    Ptr<Table> const table(new Table("values"));
    table->at(0, 0) = Str(name);
    for (QX::Cell const& value : values) {
        table->at(0, Table::npos) = value;
    }
    return table;
}

Answer answerOf(Rows const& rows, Order order) {
    Tally tally(order);
    for (Row const& row : rows) {
        tally << row.id << row.name << row.city << row.amount << row.crates;
        tally.endRow();
    }
    return tally.answer();
}

Answer answerOf(Table const& table, Order order) {
    Tally tally(order);
    for (std::size_t j = 1; j < table.items(0); ++j) {
        for (std::size_t i = 0; i < table.indices(); ++i) {
            take(tally, table.get(i, j));
        }
        tally.endRow();
    }
    return tally.answer();
}

Answer answerOf(Json const& object, Order order) {
    Tally tally(order);
    for (std::size_t j = 0; j < object["id"].size(); ++j) {
        for (char const* column : columns) {
            take(tally, object[column][j]);
        }
        tally.endRow();
    }
    return tally.answer();
}

void take(Tally& tally, QX::Cell const& cell) {
    if (cell.isA() == QX::Cell::NumericCell) {
        double number = 0;
        (void)cell.get(number);
        tally << number;
    } else {
        Str text;
        (void)cell.get(text, 0);
        tally << std::string_view(text.get(), text.size());
    }
}

void take(Tally& tally, Json const& value) {
    if (value.is_number()) {
        tally << value.get<double>();
    } else {
        tally << value.get_ref<std::string const&>();
    }
}

} // namespace Bench
