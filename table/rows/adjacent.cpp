#include "table/rows/adjacent.h"

#include "table/rows/matchhash.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace QX {

namespace {

using Word = std::uint64_t;
using Words = BlockVector<Word>;

/// A Bloom filter: a set of words that takes about one in sixteen others for its own.
class BloomFilter {
public:
    explicit BloomFilter(Words const& words) : bits_(std::bit_ceil(words.size() / 4 + 1)) {
        for (Word const word : words) {
            Word const hash = hash_.ofWord(word);
            bits_[placeOf(hash)] |= maskOf(hash);
        }
    }

    bool mayHave(Word word) const {
        Word const hash = hash_.ofWord(word);
        return (bits_[placeOf(hash)] & maskOf(hash)) != 0;
    }

private:
    static Word maskOf(Word hash) { return Word{1} << (hash >> 58U); }
    std::size_t placeOf(Word hash) const { return hash & (bits_.size() - 1); }

    MatchHash const& hash_ = MatchHash::ofProcess();
    Words bits_;
};

} // namespace

bool hasAdjacentDoubles(Words const& words) {
    BloomFilter const all(words);
    Words suspects; // that are next to a word, and perhaps among the words
    for (Word const word : words) {
        if (all.mayHave(word + 1)) {
            suspects.push_back(word + 1);
        }
    }
    std::sort(suspects.begin(), suspects.end());
    BloomFilter const few(suspects);
    return std::any_of(words.begin(), words.end(), [&](Word word) {
        return few.mayHave(word) && std::binary_search(suspects.begin(), suspects.end(), word);
    });
}

} // namespace QX
