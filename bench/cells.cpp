// Single cells: made, read, compared and calculated with, a vector of n of them at a time.

#include "families.h"
#include "rows.h"
#include "workload.h"

#include <charconv>
#include <utility>
#include <variant>

namespace Bench {

namespace {

using QX::Cell;

/// What plain C++ holds where QX holds a cell.
using Plain = std::variant<std::monostate, double, std::string>;

std::size_t const n = 50'000;

Answer answerOfAll(std::vector<Cell> const& cells) {
    Tally tally;
    for (Cell const& cell : cells) {
        take(tally, cell);
        tally.endRow();
    }
    return tally.answer();
}

Answer answerOfAll(std::vector<Json> const& values) {
    Tally tally;
    for (Json const& value : values) {
        take(tally, value);
        tally.endRow();
    }
    return tally.answer();
}

Answer answerOfAll(std::vector<Plain> const& values) {
    Tally tally;
    for (Plain const& value : values) {
        if (auto const* text = std::get_if<std::string>(&value)) {
            tally << *text;
        } else {
            tally << std::get<double>(value);
        }
        tally.endRow();
    }
    return tally.answer();
}

/// A vector of T of `from` each row, made by `make`.
template <typename T, typename Make>
Prepare making(Make make) {
    return [make](std::size_t size) {
        return job(
            [make, &rows = rowsOf(size)] {
                std::vector<T> made;
                made.reserve(rows.size());
                for (Row const& row : rows) {
                    made.push_back(make(row));
                }
                return made;
            },
            [](std::vector<T> const& made) { return answerOfAll(made); });
    };
}

/// A vector of all cells of one column.
template <typename T, typename Column>
std::vector<T> columnOf(std::size_t size, Column column) {
    std::vector<T> values;
    values.reserve(size);
    for (Row const& row : rowsOf(size)) {
        values.push_back(column(row));
    }
    return values;
}

/// A number computed from neighbours in a column of T.
template <typename T, typename Column, typename Count>
Prepare pairing(Column column, Count count) {
    return [column, count](std::size_t size) {
        return job(
            [count, values = columnOf<T>(size, column)] {
                double total = 0;
                for (std::size_t i = 1; i < values.size(); ++i) {
                    total += count(values[i - 1], values[i]);
                }
                return total;
            },
            [](double total) { return single(total); });
    };
}

template <typename T>
Prepare copying() {
    return [](std::size_t size) {
        std::vector<T> values;
        for (Row const& row : rowsOf(size)) {
            values.push_back(T(row.amount));
            values.push_back(T(row.name.c_str()));
        }
        return job([values] { return std::vector<T>(values); },
                   [](std::vector<T> const& made) { return answerOfAll(made); });
    };
}

Plain fromText(std::string const& text) {
    double number = 0;
    auto const [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure == std::errc() && end == text.data() + text.size()) {
        return number;
    }
    return text;
}

std::string textOf(Row const& row) {
    return static_cast<std::size_t>(row.id) % 2 == 0 ? std::string(Str::asString(row.amount).get())
                                                     : row.name;
}

Prepare parsing(bool byQx) {
    return [byQx](std::size_t size) {
        std::vector<std::string> const texts = columnOf<std::string>(size, textOf);
        if (byQx) {
            std::vector<Str> const strs(texts.begin(), texts.end());
            return job([strs] { return std::vector<Cell>(strs.begin(), strs.end()); },
                       [](std::vector<Cell> const& made) { return answerOfAll(made); });
        }
        return job(
            [texts] {
                std::vector<Plain> made;
                made.reserve(texts.size());
                for (std::string const& text : texts) {
                    made.push_back(fromText(text));
                }
                return made;
            },
            [](std::vector<Plain> const& made) { return answerOfAll(made); });
    };
}

double numberOf(Cell const& cell) {
    double number = 0;
    (void)cell.get(number);
    return number;
}

std::size_t lengthOf(Cell const& cell) {
    Str text;
    (void)cell.get(text, 0);
    return text.size();
}

auto const amount = [](Row const& row) { return row.amount; };
auto const name = [](Row const& row) { return row.name; };
auto const nameCell = [](Row const& row) { return Str(row.name); };

void addMaking() {
    add({"cells/make numbers",
         n,
         making<Cell>(amount),
         {{"json", making<Json>(amount)}, {"plain", making<Plain>(amount)}}});
    add({"cells/make texts",
         n,
         making<Cell>(nameCell),
         {{"json", making<Json>(name)}, {"plain", making<Plain>(name)}}});
    add({"cells/read from texts", n, parsing(true), {{"plain", parsing(false)}}});
    add({"cells/copy", n, copying<Cell>(), {{"json", copying<Json>()}, {"plain", copying<Plain>()}}});
}

void addUsing() {
    auto const sum = [](auto read) {
        return [read](auto const& left, auto const& right) { return read(left) - 2 * read(right); };
    };
    add({"cells/get numbers",
         n,
         pairing<Cell>(amount, sum(numberOf)),
         {{"json", pairing<Json>(amount, sum([](Json const& value) { return value.get<double>(); }))},
          {"plain",
           pairing<Plain>(amount, sum([](Plain const& value) { return std::get<double>(value); }))}}});

    auto const length = [](auto read) {
        return [read](auto const& left, auto const&) { return static_cast<double>(read(left)); };
    };
    add({"cells/get texts",
         n,
         pairing<Cell>(nameCell, length(lengthOf)),
         {{"json", pairing<Json>(
                       name, length([](Json const& value) { return value.get<std::string>().size(); }))},
          {"plain", pairing<Plain>(name, length([](Plain const& value) {
                                       return std::string(std::get<std::string>(value)).size();
                                   }))}}});

    auto const equal = [](auto const& left, auto const& right) { return left == right ? 1.0 : 0.0; };
    auto const less = [](auto const& left, auto const& right) { return left < right ? 1.0 : 0.0; };
    auto const equalCells = [](Cell const& left, Cell const& right) {
        return left.compare(right, false) ? 1.0 : 0.0;
    };
    auto const town = [](Row const& row) { return row.city; };
    auto const townCell = [](Row const& row) { return Str(row.city); };
    add({"cells/equal texts",
         n,
         pairing<Cell>(townCell, equalCells),
         {{"json", pairing<Json>(town, equal)}, {"plain", pairing<Plain>(town, equal)}}});
    add({"cells/order texts",
         n,
         pairing<Cell>(nameCell, less),
         {{"json", pairing<Json>(name, less)}, {"plain", pairing<Plain>(name, less)}}});
    add({"cells/equal numbers",
         n,
         pairing<Cell>(amount, equalCells),
         {{"json", pairing<Json>(amount, equal)}, {"plain", pairing<Plain>(amount, equal)}}});
    add({"cells/order numbers",
         n,
         pairing<Cell>(amount, less),
         {{"json", pairing<Json>(amount, less)}, {"plain", pairing<Plain>(amount, less)}}});
    add({"cells/add numbers",
         n,
         pairing<Cell>(amount,
                       [plus = Str("+")](Cell const& left, Cell const& right) {
                           return numberOf(left.operation(right, plus));
                       }),
         {{"json", pairing<Json>(amount, [](Json const& left, Json const& right) {
               return Json(left.get<double>() + right.get<double>()).get<double>();
           })}}});
}

} // namespace

void addCells() {
    addMaking();
    addUsing();
}

} // namespace Bench
