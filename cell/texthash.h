#pragma once

#include "base/hash.h"
#include "cell/cellvalue.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace QX {

/// A word of a text's bytes.
inline std::uint64_t wordAt(char const* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

/// Hashes a text short enough to be held in a cell, with zeros behind it as there.
inline std::uint64_t hashPadded(char const* text, std::size_t size) {
    constexpr std::size_t rest = Detail::CellContent::longestInPlace - sizeof(std::uint64_t);
    return spread(spread(wordAt(text) ^ size) ^ wordAt(text + rest));
}

/// Hashes a text of at least the size of a word.
inline std::uint64_t hashWords(std::string_view text) {
    std::uint64_t hash = text.size();
    for (std::size_t k = 0; k + sizeof hash < text.size(); k += sizeof hash) {
        hash = spread(hash ^ wordAt(text.data() + k));
    }
    return spread(hash ^ wordAt(text.data() + text.size() - sizeof hash));
}

/// The hash of the text of a string cell.
inline std::uint64_t textHash(Cell const& cell) {
    std::string_view const text = textOf(cell);
    bool const isShort = CellImplementation::contentOf(cell).isShort();
    return isShort ? hashPadded(text.data(), text.size()) : hashWords(text);
}

/// The hash that a string cell of this text has.
inline std::uint64_t textHash(std::string_view text) {
    constexpr std::size_t longest = Detail::CellContent::longestInPlace;
    if (text.size() > longest) {
        return hashWords(text);
    }
    std::array<char, longest> padded{};
    std::copy(text.begin(), text.end(), padded.begin());
    return hashPadded(padded.data(), text.size());
}

} // namespace QX
