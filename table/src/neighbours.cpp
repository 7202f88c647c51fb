#include "table/src/neighbours.h"

#include "base/hash.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace QX {

namespace {

using Word = std::uint64_t;
using Words = BlockVector<Word>;

/// A set of words that may take others for its own, about one in sixteen.
class Filter {
public:
    explicit Filter(Words const& words) : bits_(std::bit_ceil(words.size() / 4 + 1)) {
        for (Word const word : words) {
            bits_[placeOf(word)] |= maskOf(word);
        }
    }

    bool mayHave(Word word) const { return (bits_[placeOf(word)] & maskOf(word)) != 0; }

private:
    static Word maskOf(Word word) { return Word{1} << (spread(word) >> 58U); }
    std::size_t placeOf(Word word) const { return spread(word) >> 20U & (bits_.size() - 1); }

    Words bits_;
};

} // namespace

bool haveNeighbours(Words const& words) {
    Filter const all(words);
    Words suspects; // that are next to a word, and perhaps among the words
    for (Word const word : words) {
        if (all.mayHave(word + 1)) {
            suspects.push_back(word + 1);
        }
    }
    std::sort(suspects.begin(), suspects.end());
    Filter const few(suspects);
    return std::any_of(words.begin(), words.end(), [&](Word word) {
        return few.mayHave(word) && std::binary_search(suspects.begin(), suspects.end(), word);
    });
}

} // namespace QX
