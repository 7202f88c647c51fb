#pragma once

#include "fuzz/bytes.h"
#include "fuzz/nesting.h"

#include <qx/qx.h>

#include <cmath>
#include <limits>
#include <vector>

namespace QX {

/// Makes cells of every kind from a fuzzer's input, with a liking for values that are close to others.
class CellMaker {
public:
    explicit CellMaker(Bytes& bytes) : bytes_(bytes) {}

    Cell cell() {
        Cell const made = anyCell();
        former_.push_back(made);
        return made;
    }
    std::vector<Cell> cells(std::size_t count) {
        std::vector<Cell> all;
        for (std::size_t k = 0; k < count; ++k) {
            all.push_back(cell());
        }
        return all;
    }
    /// A table of up to so many indices of up to so many items each.
    Ptr<Table> table(std::size_t indices, std::size_t items) {
        Ptr<Table> made(new Table("made"));
        for (std::size_t i = bytes_.below(indices + 1); i-- > 0;) {
            for (std::size_t j = bytes_.below(items + 1); j-- > 0;) {
                made->at(i, j, cell());
            }
        }
        return made;
    }

private:
    Cell anyCell() {
        switch (bytes_.below(16)) {
        case 0:
            return {};
        case 1:
            return {static_cast<double>(static_cast<std::int8_t>(bytes_.byte()))};
        case 2:
            return {bytes_.number()};
        case 3:
            return neighbour();
        case 4:
        case 5:
            return formerCell();
        case 6:
            return {Str(bytes_.text(4))};
        case 7:
            return {Str(bytes_.text(40))};
        case 8:
            return {Str("1970-01-0" + std::string(1, static_cast<char>('0' + bytes_.below(10))))};
        case 9:
            return {Status(Str(bytes_.text(4)), Status::Error, -1)};
        case 10:
            return undefined(formerNumber());
        case 11:
            return {std::bit_cast<double>(std::uint64_t{0x7FF8000000000000} + bytes_.below(4))};
        case 12:
            return {std::bit_cast<double>(std::uint64_t{0xFFF8000000000000} + bytes_.below(4))};
        case 13:
            return {extremes[bytes_.below(std::size(extremes))]};
        case 14:
            return {newTable()};
        default:
            return tableAgain();
        }
    }

    Cell formerCell() {
        return former_.empty() ? Cell() : former_[former_.size() - 1 - bytes_.below(formerReach())];
    }
    double formerNumber() {
        double number = 0;
        (void)formerCell().get(number);
        return number;
    }
    std::size_t formerReach() const { return former_.size() < 256 ? former_.size() : 256; }
    /// The number next to one made before, or the one after.
    Cell neighbour() {
        double const toward = bytes_.flip() ? HUGE_VAL : -HUGE_VAL;
        double const next = std::nextafter(formerNumber(), toward);
        return {bytes_.flip() ? next : std::nextafter(next, toward)};
    }
    static Cell undefined(double number) {
        AnalyticDouble made;
        made.value = number;
        return {made};
    }
    Ptr<Table> newTable() {
        Ptr<Table> const made(bytes_.flip() ? new Table : new Table(Str(bytes_.text(3))));
        for (std::size_t n = nesting_ < 3 ? bytes_.below(4) : 0; n > 0; --n) {
            ++nesting_;
            std::size_t const i = bytes_.below(3);
            made->at(i, bytes_.below(3), cell());
            --nesting_;
        }
        return isVast(*made) ? Ptr<Table>(new Table("vast")) : made;
    }
    /// The nested table of a cell made before: the same, another handle to its data, or one without any.
    Cell tableAgain() {
        Ptr<Table> table;
        (void)formerCell().get(table);
        if (!table) {
            return {Ptr<Table>(new Table(Ptr<TableImplementation>()))};
        }
        return {bytes_.flip() ? table : Ptr<Table>(new Table(*table))};
    }

    static constexpr double extremes[] = {
        0.0,
        -0.0,
        std::numeric_limits<double>::denorm_min(),
        -std::numeric_limits<double>::denorm_min(),
        std::numeric_limits<double>::max(),
        std::numeric_limits<double>::lowest(),
        std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity(),
        2147483647,
        -2147483648.0,
        2147483648,
        4503599627370496.0,
        9007199254740992.0,
        9007199254740994.0,
        1e15,
        20779,
        0.1 + 0.2,
        1e300,
    };

    Bytes& bytes_;
    std::vector<Cell> former_;
    int nesting_ = 0;
};

} // namespace QX
