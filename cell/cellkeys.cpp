#include "cell/cellkeys.h"

#include "base/hash.h"
#include "cell/cellvalue.h"
#include "cell/texthash.h"

#include <bit>

namespace QX {

namespace {

/// What a key stands for; one per way in which two cells can be equal.
enum class Match : std::uint64_t { Empty, Text, Number, DateOfText, DateOfNumber, Table, Error };

std::uint64_t key(Match match, std::uint64_t value) {
    return spread(value + (static_cast<std::uint64_t>(match) << 56U));
}

std::uint64_t dayKey(Match match, Cell const& cell) {
    Date date;
    cell.get(date);
    return key(match, static_cast<std::uint32_t>(date.days()));
}

void addNumber(CellKeys& keys, double number) {
    auto const bits = std::bit_cast<std::uint64_t>(number);
    keys.add(key(Match::Number, bits));
    keys.add(key(Match::Number, bits - 1));
    keys.add(key(Match::Number, bits + 1));
    if (number == 0) {
        keys.add(key(Match::Number, std::bit_cast<std::uint64_t>(-number)));
    }
}

} // namespace

CellKeys keysOf(Cell const& filed, DateKeys dates) {
    CellKeys keys;
    switch (filed.isA()) {
    case Cell::EmptyCell:
        keys.add(key(Match::Empty, 0));
        break;
    case Cell::StringCell:
        keys.add(key(Match::Text, textHash(filed)));
        if (dates.ofTexts && isDate(filed)) {
            keys.add(dayKey(Match::DateOfText, filed));
        }
        break;
    case Cell::NumericCell:
        keys.add(key(Match::Number, std::bit_cast<std::uint64_t>(numberOf(filed).get())));
        if (dates.ofNumbers) {
            keys.add(dayKey(Match::DateOfNumber, filed));
        }
        break;
    case Cell::TableCell:
        keys.add(key(Match::Table, reinterpret_cast<std::uintptr_t>(nestedIn(filed))));
        break;
    case Cell::ErrorCell:
        keys.add(key(Match::Error, 0));
        break;
    }
    return keys;
}

CellKeys keysFor(Cell const& sought) {
    CellKeys keys;
    if (sought.empty()) {
        keys.add(key(Match::Empty, 0)); // an empty cell equals whatever is empty
    }
    switch (sought.isA()) {
    case Cell::EmptyCell:
        break;
    case Cell::StringCell:
        keys.add(key(Match::Text, textHash(sought)));
        if (isDate(sought)) {
            keys.add(dayKey(Match::DateOfNumber, sought));
        }
        break;
    case Cell::NumericCell:
        addNumber(keys, numberOf(sought).get());
        keys.add(dayKey(Match::DateOfText, sought));
        break;
    case Cell::TableCell:
        keys.add(key(Match::Table, reinterpret_cast<std::uintptr_t>(nestedIn(sought))));
        break;
    case Cell::ErrorCell:
        keys.add(key(Match::Error, 0));
        keys.add(key(Match::Text, textHash(""))); // a string cell without characters equals any error
        break;
    }
    return keys;
}

} // namespace QX
