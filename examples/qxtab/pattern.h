#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qxtab {

/// A regular expression over the characters of UTF-8 texts: literals, `.`, `[a-z]`, `[^a-z]`, `\d \w \s`
/// and `\D \W \S`, `^` and `$`, groups, `|`, and `* + ? {n} {n,} {n,m}`.
///
/// Matching takes time linear in the text, whatever the pattern: all ways to match are followed at once.
class Pattern {
public:
    /// Raises Misuse for a pattern that can't be read.
    explicit Pattern(std::string_view text);

    /// Whether the pattern matches anywhere in a text.
    bool matches(std::string_view text);

    /// What is wrong with a pattern; nothing when it can be read.
    static std::string problem(std::string_view text);

    /// Characters from first to last.
    using Range = std::pair<std::uint32_t, std::uint32_t>;

    /// A step of the program that a pattern becomes.
    struct Step {
        enum Kind { Character, Split, Begin, End, Match };

        Kind kind = Match;
        std::size_t next = 0;
        std::size_t other = 0;    ///< of a split
        std::vector<Range> set{}; ///< of a character
        bool negated = false;     ///< whether it is one that the set lacks
    };

private:
    void add(std::size_t step, bool begin, bool end);

    std::vector<Step> steps_;
    std::vector<std::size_t> current_; ///< steps to try at a place
    std::vector<std::size_t> following_;
    std::vector<std::size_t> waiting_;
    std::vector<std::size_t> seen_; ///< for each step the last place where it was added
    std::size_t place_ = 0;
    bool matched_ = false;
};

} // namespace qxtab
