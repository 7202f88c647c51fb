#pragma once

#include "cell/view.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace QX {

/// A keyed hash: without the key nobody can make data whose hashes collide, and with it such data cost
/// no more than a fallback (see RowIndex). No result depends on the key.
///
/// A round multiplies two words of 64 bits and folds the product, as the family of multiplying hashes
/// does; a short text or a number takes two.
class MatchHash {
public:
    /// The hash of this process, whose key is drawn from the system once.
    static MatchHash const& ofProcess();
    /// A hash with a key drawn now, which no data can have been made for.
    static MatchHash fresh();
    /// A hash with a given key.
    MatchHash(std::uint64_t first, std::uint64_t second) : first_(first), second_(second) {}

    /// A half of the key: with it texts can be made whose hashes collide.
    std::uint64_t first() const { return first_; }

    std::uint64_t ofWord(std::uint64_t word, std::uint64_t seed = 0) const {
        return folded(folded(word ^ first_, second_) ^ first_, seed ^ second_);
    }
    /// Of a text's bytes and size.
    std::uint64_t ofText(std::string_view text, std::uint64_t seed = 0) const {
        if (text.size() > longestShort) {
            return ofBytes(text.data(), text.size(), seed);
        }
        std::array<char, longestShort> padded{};
        std::copy(text.begin(), text.end(), padded.begin());
        return ofPadded(padded.data(), text.size(), seed);
    }
    /// The same of the text of a string cell, which has zeros behind a short text.
    std::uint64_t ofText(Cell const& cell, std::uint64_t seed = 0) const {
        std::string_view const text = textOf(cell);
        return CellImplementation::contentOf(cell).isShort() ? ofPadded(text.data(), text.size(), seed)
                                                             : ofBytes(text.data(), text.size(), seed);
    }

private:
    static constexpr std::size_t longestShort = Detail::CellContent::longestInPlace;

    static std::uint64_t folded(std::uint64_t a, std::uint64_t b) {
#if defined(__SIZEOF_INT128__)
        __extension__ using Wide = unsigned __int128;
        Wide const product = Wide{a} * b;
        return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
#else
        std::uint64_t const cross = (a & 0xFFFFFFFFU) * (b >> 32U);
        std::uint64_t const other = (a >> 32U) * (b & 0xFFFFFFFFU);
        return a * b ^ ((a >> 32U) * (b >> 32U) + (cross >> 32U) + (other >> 32U)); // but for a carry
#endif
    }
    static std::uint64_t wordAt(char const* bytes) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes, sizeof word);
        return word;
    }
    std::uint64_t round(std::uint64_t low, std::uint64_t high, std::size_t size,
                        std::uint64_t seed) const {
        return folded(folded(low ^ first_, high ^ second_) ^ size, seed ^ second_);
    }
    /// For a text of at most `longestShort` bytes, with zeros behind it.
    std::uint64_t ofPadded(char const* bytes, std::size_t size, std::uint64_t seed) const {
        return round(wordAt(bytes), wordAt(bytes + longestShort - sizeof seed), size, seed);
    }
    /// For at least two words of bytes.
    std::uint64_t ofBytes(char const* bytes, std::size_t size, std::uint64_t seed) const {
        constexpr std::size_t both = 2 * sizeof seed;
        std::uint64_t hash = seed;
        for (std::size_t k = 0; k + both < size; k += both) {
            hash = folded(wordAt(bytes + k) ^ first_, wordAt(bytes + k + sizeof seed) ^ second_ ^ hash);
        }
        char const* const rest = bytes + size - both;
        return round(wordAt(rest), wordAt(rest + sizeof seed), size, hash);
    }

    std::uint64_t first_;
    std::uint64_t second_;
};

} // namespace QX
