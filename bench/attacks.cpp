// What data crafted against the library cost beside honest data of the same shape: qx_attacks [ROWS]
//
// The hash is attacked with its key known. Texts begin with a half of the key, which makes a factor of the
// product 0, so that all hashes are one; numbers are chosen for the slots that they take. Sorts get long
// common prefixes, equal keys, and one value among the others that upsets their order.

#include "qx/qx.h"
#include "qx/rows.h"
#include "table/rows/matchhash.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace QX;

using Cells = std::vector<Cell>;

double seconds() {
    std::timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// The least of three times.
double timeOf(std::function<void()> const& work) {
    double least = HUGE_VAL;
    for (int n = 0; n < 3; ++n) {
        double const start = seconds();
        work();
        least = std::min(least, seconds() - start);
    }
    return least;
}

/// Texts of 47 bytes that differ in 8; with `half` at the places where the hash of the text, and that of
/// the text behind a colon, reads its first word of two.
Cells texts(std::size_t count, std::uint64_t half, bool displayed) {
    Cells cells;
    for (std::size_t k = 0; k < count; ++k) {
        char number[9];
        std::snprintf(number, sizeof number, "%08x", static_cast<unsigned>(k * 2654435761U));
        std::string text(displayed ? 15 : 0, 't');
        text.append(reinterpret_cast<char const*>(&half), sizeof half).append(number, 8);
        cells.emplace_back(Str(text.append(47 - text.size(), '.')));
    }
    return cells;
}

/// Numbers the first hundreds of which take one slot of a table with that many slots or fewer.
Cells numbers(std::size_t count, bool crafted) {
    MatchHash const& hash = MatchHash::ofProcess();
    std::size_t const slots = std::size_t{1} << 16U;
    Cells cells;
    for (std::uint64_t k = 1; cells.size() < count; ++k) {
        double const number = static_cast<double>(k);
        std::uint64_t word = 0;
        std::memcpy(&word, &number, sizeof word);
        bool const taken = hash.ofWord(word, 2) % slots == 0 || hash.ofWord(word) % slots == 0 ||
                           hash.ofWord(word ^ std::uint64_t{1} << 63U) % slots == 0;
        if (!crafted || cells.size() >= 900 || taken) {
            cells.emplace_back(number);
        }
    }
    return cells;
}

/// Every item twice, under one name.
Ptr<Table> rows(Cells const& cells) {
    Ptr<Table> table(new Table("rows"));
    table->at(0, 0) = Cell("key");
    for (Cell const& cell : cells) {
        table->at(0, Table::npos) = Cell(cell);
    }
    for (Cell const& cell : cells) {
        table->at(0, Table::npos) = Cell(cell);
    }
    return table;
}

/// Every cell as the name of an index.
Ptr<Table> wide(Cells const& cells) {
    Ptr<Table> table(new Table("wide"));
    for (std::size_t i = 0; i < cells.size(); ++i) {
        table->at(i, 0) = cells[i];
        table->at(i, 1) = Cell(static_cast<double>(i));
    }
    return table;
}

Ptr<Table> column(char const* name, Cells const& cells) {
    Ptr<Table> table(new Table(name));
    table->at(0, 0) = Cell("key");
    for (Cell const& cell : cells) {
        table->at(0, Table::npos) = Cell(cell);
    }
    return table;
}

/// Prints the times of an operation on honest and on crafted data.
void report(char const* data, char const* operation, double honest, double crafted) {
    std::printf("%-26s %-22s %9.4f %9.4f %7.2f\n", data, operation, honest, crafted, crafted / honest);
    std::fflush(stdout);
}

template <typename Work>
void compareTimes(char const* data, char const* operation, Ptr<Table> const& honest,
                  Ptr<Table> const& crafted, Work const& work) {
    double const plain = timeOf([&] { work(honest); });
    report(data, operation, plain, timeOf([&] { work(crafted); }));
}

void attackRows(char const* data, Cells const& honest, Cells const& crafted) {
    Ptr<Table> const good = rows(honest);
    Ptr<Table> const bad = rows(crafted);
    Ptr<Table> const key = column("key", {});
    Ptr<Table> result;
    compareTimes(data, "filter", good, bad,
                 [&](auto const& t) { (void)t->filter(t, result, false, false); });
    compareTimes(data, "filter, exclude", good, bad,
                 [&](auto const& t) { (void)t->filter(t, result, false, true); });
    compareTimes(data, "select, distinct", good, bad,
                 [&](auto const& t) { (void)t->select(key, result, false, true, false); });
    compareTimes(data, "groupRows", good, bad, [&](auto const& t) { (void)groupRows(*t, {0}); });
    compareTimes(data, "matchRows", good, bad,
                 [&](auto const& t) { (void)matchRows(*t, {0}, *t, {0}); });
}

void attackNames(char const* data, Cells const& honest, Cells const& crafted) {
    Ptr<Table> const good = wide(honest);
    Ptr<Table> const bad = wide(crafted);
    Ptr<Table> result;
    compareTimes(data, "merge by name", good, bad,
                 [&](auto const& t) { (void)t->merge(t, result, true); });
    compareTimes(data, "append", good, bad,
                 [&](auto const& t) { (void)t->append(t, result, true, false); });
    compareTimes(data, "overlay", good, bad,
                 [&](auto const& t) { (void)t->overlay(t, result, false, false, true); });
    compareTimes(data, "compare", good, bad,
                 [&](auto const& t) { (void)t->compare(t->clone(), result, false); });
    compareTimes(data, "look up every name", good, bad, [&](auto const& t) {
        for (std::size_t i = 0; i < t->indices(); ++i) {
            Str name;
            (void)t->get(i, 0).get(name, 0);
            (void)t->get(name, 1);
        }
    });
}

void attackSort(char const* data, Cells const& honest, Cells const& crafted) {
    Ptr<Table> const key = column("key", {});
    Ptr<Table> result;
    compareTimes(data, "sort", column("t", honest), column("t", crafted),
                 [&](auto const& t) { (void)t->sort(key, result, true); });
}

Cells fractions(std::size_t count) {
    Cells cells;
    for (std::size_t k = 0; k < count; ++k) {
        cells.emplace_back(static_cast<double>(k * 2654435761U % count) / 7);
    }
    return cells;
}

void attackWithOddOnes(std::size_t count) {
    Cells const honest = fractions(count);
    Ptr<Table> const key = column("key", {});
    double const between = std::nextafter(3.0 / 7, 1);
    struct {
        char const* name;
        Cell cell;
    } const odd[] = {
        {"one NaN", Cell(std::nan(""))},
        {"one date", Cell("1970-01-05")},
        {"one number 1 ulp away", Cell(between)},
        {"one error", Cell(Status("x", Status::Error, -1))},
        {"one table", Cell(Ptr<Table>(new Table("n")))},
        {"one text", Cell("text")},
    };
    for (auto const& each : odd) {
        Cells cells = honest;
        cells[count / 2] = each.cell;
        attackSort(each.name, honest, cells);
        Ptr<Table> result;
        compareTimes(each.name, "select, distinct", column("t", honest), column("t", cells),
                     [&](auto const& t) { (void)t->select(key, result, false, true, false); });
    }
    Cells links;
    double number = 1;
    for (std::size_t k = 0; k < count; ++k) {
        links.emplace_back(number);
        number = std::nextafter(number, 2);
    }
    Ptr<Table> result;
    compareTimes("each number 1 ulp on", "select, distinct", column("t", honest), column("t", links),
                 [&](auto const& t) { (void)t->select(key, result, false, true, false); });
    attackSort("each number 1 ulp on", honest, links);
}

void attackWithTexts(std::size_t count) {
    Cells const honest = texts(count, 0x2020202020202020U, false);
    Cells equal(count, Cell("one text of more than fifteen bytes"));
    attackSort("equal texts", honest, equal);
    Cells organ;
    for (std::size_t k = 0; k < count; ++k) {
        organ.emplace_back(static_cast<double>(std::min(k, count - k)));
    }
    attackSort("up and down", fractions(count), organ);
    Cells longs;
    Cells shorts; // as many bytes in all
    for (int k = 0; k < 80; ++k) {
        shorts.emplace_back(Str(std::string(500'000, 'p') + std::to_string(k * 7 % 80)));
        if (k < 40) {
            longs.emplace_back(Str(std::string(1'000'000, 'p') + std::to_string(k * 7 % 40)));
        }
    }
    attackSort("prefixes of a megabyte", shorts, longs);
}

} // namespace

int main(int argc, char** argv) {
    Cells const two = texts(2, MatchHash::ofProcess().first(), false);
    if (MatchHash::ofProcess().ofText(two[0]) != MatchHash::ofProcess().ofText(two[1])) {
        std::puts("The texts are not crafted against this hash.");
        return 1;
    }
    std::size_t const count = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 50'000;
    std::uint64_t const half = MatchHash::ofProcess().first();
    std::printf("%-26s %-22s %9s %9s %7s\n", "data", "operation", "honest s", "crafted s", "ratio");
    attackRows("texts of one hash", texts(count, half ^ 0x1234567, false), texts(count, half, false));
    attackRows("numbers of one slot", numbers(count, false), numbers(count, true));
    attackNames("names of one hash", texts(count / 2, half ^ 0x1234567, false),
                texts(count / 2, half, false));
    Ptr<Table> result;
    compareTimes("texts of one hash", "append, distinct", rows(texts(count, half ^ 0x1234567, true)),
                 rows(texts(count, half, true)),
                 [&](auto const& t) { (void)t->append(Ptr<Table>(new Table), result, false, true); });
    attackWithOddOnes(2 * count);
    attackWithTexts(2 * count);
    return 0;
}
