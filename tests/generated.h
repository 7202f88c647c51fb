#pragma once

#include "briefform.h"

#include <bit>
#include <cfloat>
#include <cstdint>
#include <limits>
#include <random>

namespace QX {

/// Makes cells at random, always the same ones: the kinds of values that make equality and order hard.
class Generator {
public:
    using Cells = std::vector<Cell>;

    explicit Generator(unsigned seed) : random_(seed) {}

    std::size_t below(std::size_t end) { return random_() % end; }
    bool flip() { return below(2) == 0; }

    /// A pool of values to draw from: honest ones only, or some of all.
    Cells pool(bool honest) {
        Cells pool;
        std::vector<Cells> const& kinds = honest ? honestKinds_ : kinds_;
        for (Cells const& kind : kinds) {
            for (std::size_t n = below(2) * below(6); n > 0; --n) {
                pool.push_back(kind[below(kind.size())]);
            }
        }
        pool.push_back(kinds.front()[below(kinds.front().size())]);
        return pool;
    }
    Cells column(Cells const& pool, std::size_t length) {
        Cells cells;
        for (std::size_t j = 0; j < length; ++j) {
            cells.push_back(pool[below(pool.size())]);
        }
        return cells;
    }
    /// A table with names and items from `pool`; some indices are short, some without items.
    Ptr<Table> table(Cells const& pool, std::size_t indices, std::size_t items) {
        Ptr<Table> made(new Table("t"));
        for (std::size_t i = 0; i < indices; ++i) {
            std::size_t const length = flip() ? items : below(items + 1);
            for (std::size_t j = 0; j < length; ++j) {
                made->at(i, j) = pool[below(pool.size())];
            }
        }
        return made;
    }

private:
    static Cell bits(std::uint64_t value) { return {std::bit_cast<double>(value)}; }

    template <std::size_t size>
    static Cell bytes(char const (&text)[size]) {
        return {Str(std::string(text, size - 1))};
    }

    std::mt19937 random_;
    Ptr<Table> shared_{new Table("n")};
    std::vector<Cells> honestKinds_{
        {0, -0.0, 1, 2, 3, 0.5, -7.25, 1e300, 1e15, HUGE_VAL, -HUGE_VAL},
        {Cell("a"), Cell("b"), Cell("A"), Cell("ab"), Cell("a:"), Cell(":b")},
        {Cell(), Cell(Str("")), undefined(), undefined(0.3), undefined(1)},
        {bytes("fourteen bytes"), bytes("fifteen bytes a"), bytes("fifteen bytes\0\0"),
         bytes("FIFTEEN BYTES A"), bytes("more, 16 bytes a"), bytes("more, 16 bytes b"),
         bytes("MORE, 16 BYTES A"), bytes("more, 16 bytes a\0")},
        {textCell("2"), textCell("007"), textCell("[Empty]"), textCell("## 0 1"), textCell("#Err: x")},
    };
    std::vector<Cells> kinds_{
        honestKinds_[0],
        honestKinds_[1],
        honestKinds_[2],
        honestKinds_[3],
        honestKinds_[4],
        {0.3, 0.1 + 0.2, std::nextafter(0.1 + 0.2, 1), std::nextafter(1, 2), std::nextafter(1, 0), 1},
        {0, -0.0, DBL_TRUE_MIN, -DBL_TRUE_MIN, 2 * DBL_TRUE_MIN, DBL_MAX, HUGE_VAL, -DBL_MAX},
        {bits(0x7FF8000000000000), bits(0x7FF8000000000001), bits(0x7FF8000000000003), HUGE_VAL,
         bits(0xFFF8000000000000), bits(0xFFFFFFFFFFFFFFFF), bits(0x7FFFFFFFFFFFFFFF),
         bits(0x7FF0000000000001)},
        {Cell("1970-01-01"), Cell("1970-01-03"), Cell("2026-11-22"), textCell(" 2026-11-22"), 0, 1.5, 2,
         20779, -1e20},
        {Cell(Status("x", Status::Error, -1)), Cell(Status("y", Status::Error, -1)), Cell(Status())},
        {Cell(shared_), Cell(shared_), Cell(Ptr<Table>(new Table(*shared_))), Cell(brief("1", "m"))},
    };
};

/// Everything about a cell: numbers by their bits, tables by their address.
inline std::string exact(Cell const& cell) {
    std::string all = std::to_string(cell.isA()) + ' ' + text(cell);
    AnalyticDouble value;
    if (cell.get(value).ok()) {
        all +=
            ' ' + std::to_string(std::bit_cast<std::uint64_t>(value.value)) + (value.valid ? "" : " ?");
    }
    return all + ' ' + std::to_string(reinterpret_cast<std::uintptr_t>(nested(cell).get()));
}

/// Everything about a table, its name apart.
inline std::string exact(Table const& table) {
    std::string all;
    for (std::size_t i = 0; i < table.indices(); ++i) {
        all += "Index\n";
        for (std::size_t j = 0; j < length(table, i); ++j) {
            all += exact(table.get(i, j)) + '\n';
        }
    }
    return all;
}

} // namespace QX
