#pragma once

#include "cell/dates.h"
#include "table/rows/matchhash.h"
#include "table/rows/ulpindex.h"

#include <bit>
#include <cstdint>
#include <string_view>

namespace QX {

/// What a cell is filed under to be found by its equals; a text or a word of one kind.
struct MatchKey {
    /// One per way in which two cells can be equal.
    enum class Kind : std::uint8_t { Empty, Text, Number, DateOfText, DateOfNumber, Table, Error };

    Kind kind;
    std::uint64_t hash;
    std::uint64_t word = 0;
    std::string_view text{};

    MatchKey(MatchHash const& by, Kind ofKind, std::uint64_t ofWord = 0)
        : kind(ofKind), hash(by.ofWord(ofWord, static_cast<std::uint64_t>(ofKind))), word(ofWord) {}
    /// The key of a string cell's text.
    MatchKey(MatchHash const& by, Cell const& cell)
        : kind(Kind::Text), hash(by.ofText(cell)), text(textOf(cell)) {}
    /// The key that a string cell of this text has.
    MatchKey(MatchHash const& by, std::string_view bytes)
        : kind(Kind::Text), hash(by.ofText(bytes)), text(bytes) {}

    void rehash(MatchHash const& by) {
        *this = kind == Kind::Text ? MatchKey(by, text) : MatchKey(by, kind, word);
    }
    bool operator==(MatchKey const& other) const {
        return kind == other.kind && word == other.word && text == other.text;
    }
    /// Negative, zero or positive, in a total order.
    int compare(MatchKey const& other) const {
        if (kind != other.kind) {
            return kind < other.kind ? -1 : 1;
        }
        return word != other.word ? (word < other.word ? -1 : 1) : text.compare(other.text);
    }
};

/// Which of the keys are wanted by which dates equal numbers. They take the longest to find.
struct DateKeys {
    bool ofTexts = true;   ///< for numbers to be looked up
    bool ofNumbers = true; ///< for dates to be looked up
};

/// Which of the cells that may equal a number are there to be found.
struct Findable {
    bool adjacent = true; ///< numbers other than exact integers
    bool texts = true;    ///< texts, which may be dates
};

inline MatchKey dayKey(MatchHash const& by, MatchKey::Kind kind, Date const& date) {
    return {by, kind, static_cast<std::uint32_t>(date.days())};
}

inline MatchKey tableKey(MatchHash const& by, Cell const& cell) {
    return {by, MatchKey::Kind::Table, reinterpret_cast<std::uintptr_t>(nestedIn(cell))};
}

/// Calls `use` with each key under which a cell is filed, which are one or two.
///
/// `filed.compare(sought, false)` is true exactly when a key of `filed` is also one by which to look
/// `sought` up; no two cells share more than one.
template <typename Use>
void forEachKeyOf(MatchHash const& by, Cell const& filed, DateKeys dates, Use const& use) {
    switch (filed.isA()) {
    case Cell::EmptyCell:
        use(MatchKey(by, MatchKey::Kind::Empty));
        break;
    case Cell::StringCell:
        use(MatchKey(by, filed));
        if (dates.ofTexts && isDate(filed)) {
            use(dayKey(by, MatchKey::Kind::DateOfText, dateOf(textOf(filed))));
        }
        break;
    case Cell::NumericCell:
        use(MatchKey(by, MatchKey::Kind::Number, std::bit_cast<std::uint64_t>(numberOf(filed).get())));
        if (dates.ofNumbers) {
            use(dayKey(by, MatchKey::Kind::DateOfNumber, dateOf(numberOf(filed).get())));
        }
        break;
    case Cell::TableCell:
        use(tableKey(by, filed));
        break;
    case Cell::ErrorCell:
        use(MatchKey(by, MatchKey::Kind::Error));
        break;
    }
}

/// Calls `use` with the numbers that equal a number: itself, those 1 ulp away of the same sign, and of
/// the two zeros the other one.
template <typename Use>
void forEachEqualNumber(MatchHash const& by, double number, bool adjacent, Use const& use) {
    constexpr std::uint64_t sign = std::uint64_t{1} << 63U;
    auto const bits = std::bit_cast<std::uint64_t>(number);
    auto const useBits = [&](std::uint64_t each) { use(MatchKey(by, MatchKey::Kind::Number, each)); };
    useBits(bits);
    if (number == 0) {
        useBits(bits ^ sign);
    }
    if (adjacent || !isExactInteger(number)) {
        if ((bits & ~sign) != ~sign) {
            useBits(bits + 1);
        }
        if (number != 0) {
            useBits(bits - 1);
        }
    }
}

/// Calls `use` with each key by which to look up the cells that equal `sought`.
template <typename Use>
void forEachKeyFor(MatchHash const& by, Cell const& sought, Findable findable, Use const& use) {
    if (sought.empty()) {
        use(MatchKey(by, MatchKey::Kind::Empty)); // an empty cell equals whatever is empty
    }
    switch (sought.isA()) {
    case Cell::EmptyCell:
        break;
    case Cell::StringCell:
        use(MatchKey(by, sought));
        if (isDate(sought)) {
            use(dayKey(by, MatchKey::Kind::DateOfNumber, dateOf(textOf(sought))));
        }
        break;
    case Cell::NumericCell:
        forEachEqualNumber(by, numberOf(sought).get(), findable.adjacent, use);
        if (findable.texts) {
            use(dayKey(by, MatchKey::Kind::DateOfText, dateOf(numberOf(sought).get())));
        }
        break;
    case Cell::TableCell:
        use(tableKey(by, sought));
        break;
    case Cell::ErrorCell:
        use(MatchKey(by, MatchKey::Kind::Error));
        use(MatchKey(by, std::string_view())); // a string cell without characters equals any error
        break;
    }
}

} // namespace QX
