#pragma once

#include "support.h"

#include <qx/ioerror.h>
#include <qx/iosource.h>
#include <qx/rows.h>
#include <qx/text.h>
#include <qx/values.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <memory>
#include <random>

namespace QX {

/// The message of the IoError that `call` raises, "" when it raises none.
template <typename Call>
std::string ioError(Call const& call) {
    try {
        call();
    } catch (IoError const& error) {
        return error.what();
    }
    return "";
}

/// Gives a text in pieces of so many bytes.
inline ByteSource piecesOf(std::string const& text, std::size_t piece) {
    auto const at = std::make_shared<std::size_t>(0);
    return [text, piece, at](char* buffer, std::size_t size) {
        std::size_t const taken = std::min({size, piece, text.size() - *at});
        text.copy(buffer, taken, *at);
        *at += taken;
        return taken;
    };
}

/// Every row of a table on a line, its cells joined by "|": '-' is an empty cell, a text stands in quotes.
inline std::string grid(Table const& table) {
    std::string all;
    for (std::size_t j = 0; j < table.items(0); ++j) {
        for (std::size_t i = 0; i < table.indices(); ++i) {
            Cell const& cell = table.get(i, j);
            bool const isText = cell.isA() == Cell::StringCell;
            all += i == 0 ? "" : "|";
            all += cell.isA() == Cell::EmptyCell ? "-" : isText ? "'" + text(cell) + "'" : text(cell);
        }
        all += "\n";
    }
    return all;
}

/// Everything about a table and those nested in it, numbers by their bits.
inline std::string image(Table const& table) {
    std::string all = "<" + string(table.name()) + ">";
    for (std::size_t i = 0; i < table.indices(); ++i) {
        IndexCells const cells = cellsOf(table, i);
        all += "(" + std::to_string(cells.count);
        for (std::size_t j = 0; j < cells.count; ++j) {
            Cell const& cell = cells[j];
            all += " " + std::to_string(cell.isA()) + (cell.empty() ? "e" : "");
            if (cell.isA() == Cell::NumericCell) {
                all += std::to_string(
                    std::isnan(numberIn(cell)) ? 0 : std::bit_cast<std::uint64_t>(numberIn(cell)));
            } else if (cell.isA() == Cell::TableCell) {
                all += image(*nested(cell));
            } else {
                all += text(cell);
            }
        }
        all += ")";
    }
    Ptr<Table> const attributes = table.getAttributes();
    return attributes->indices() == 0 ? all : all + "attributes" + image(*attributes);
}

/// Makes texts and cells that are hard to keep as they are, always the same ones.
class HardCells {
public:
    explicit HardCells(unsigned seed) : random_(seed) {}

    std::size_t below(std::size_t end) { return random_() % end; }
    std::string text() {
        static std::string const pieces[] = {"0",
                                             "1",
                                             "9",
                                             "-",
                                             ".",
                                             "e",
                                             "+",
                                             "a",
                                             ",",
                                             "\"",
                                             "\n",
                                             "\r",
                                             " ",
                                             "\t",
                                             "#",
                                             "##",
                                             "\\",
                                             "{",
                                             "$",
                                             "TRUE",
                                             "FALSE",
                                             "nan",
                                             "00",
                                             "1e5",
                                             "1.5",
                                             "12",
                                             "/",
                                             ";",
                                             "e+1",
                                             "$json",
                                             "2026-01-02",
                                             "\xC3\xA9",
                                             "[Empty]",
                                             "#Err: ",
                                             "999999999999999",
                                             std::string(1, '\0'),
                                             "\x7F",
                                             "\xF0\x9F\x98\x80",
                                             "9007199254740993"};
        std::string made;
        for (std::size_t n = below(4); n > 0; --n) {
            made += pieces[below(std::size(pieces))];
        }
        return made;
    }
    double number() {
        switch (below(4)) {
        case 0:
            return static_cast<double>(below(2000)) - 1000;
        case 1:
            return static_cast<double>(below(100000)) / 1000;
        case 2:
            return std::ldexp(static_cast<double>(random_()), static_cast<int>(below(1900)) - 1000);
        default:
            return -0.0;
        }
    }

private:
    std::mt19937 random_;
};

} // namespace QX
