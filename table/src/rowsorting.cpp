// The fast way to order rows: the keys are turned into words of 64 bits, which are sorted in their
// place.

#include "cell/cellvalue.h"
#include "cell/numbergrid.h"
#include "table/src/keyedplaces.h"
#include "table/src/neighbours.h"
#include "table/src/roworder.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>

namespace QX {

namespace {

using Word = std::uint64_t;

/// Shortens `common` to what `text` begins with, too.
void keepCommon(std::string_view& common, std::string_view text) {
    if (!text.starts_with(common)) {
        auto const differ = std::mismatch(common.begin(), common.end(), text.begin(), text.end());
        common = common.substr(0, static_cast<std::size_t>(differ.first - common.begin()));
    }
}

/// What a look at all cells of a column tells about its order.
class Survey {
public:
    Survey(Column const& column, Rows const& rows) {
        for (std::size_t const row : rows) {
            add(column[row]);
            if (!honest) {
                return;
            }
        }
        bool const dates =
            numbers && texts &&
            std::any_of(rows.begin(), rows.end(), [&](std::size_t row) { return isDate(column[row]); });
        honest = !dates && (apart_ || !hasNeighbours(column, rows));
    }

    /// True when cells of more than one kind are to be put in order, empty ones being a kind.
    bool mixesKinds() const { return (empties && (numbers || texts)) || (numbers && texts); }

    bool honest = true; // false where a cell was met whose order or equality is not
    bool empties = false;
    bool numbers = false;
    bool texts = false;
    std::string_view common; // what all texts begin with

private:
    void add(Cell const& cell) {
        if (cell.empty()) {
            empties = true;
        } else if (cell.isA() == Cell::NumericCell) {
            addNumber(numberOf(cell).get());
        } else if (cell.isA() == Cell::StringCell) {
            addText(textOf(cell));
        } else {
            honest = false;
        }
    }

    void addNumber(double number) {
        numbers = true;
        // Next to the smallest double stand both zeros, which the order takes for one.
        bool const smallest = std::fabs(number) == std::numeric_limits<double>::denorm_min();
        honest = !std::isnan(number) && !smallest;
        apart_ = apart_ && standsApart(number);
    }

    void addText(std::string_view text) {
        if (!texts) {
            common = text;
        }
        texts = true;
        keepCommon(common, text);
    }

    /// True when two different numbers are next to each other, and so equal.
    static bool hasNeighbours(Column const& column, Rows const& rows) {
        BlockVector<Word> words;
        for (std::size_t const row : rows) {
            if (column[row].isA() == Cell::NumericCell && !column[row].empty()) {
                words.push_back(gridWord(numberOf(column[row]).get()));
            }
        }
        return haveNeighbours(words);
    }

    bool apart_ = true; // no two different numbers can be next to each other
};

/// The first word of what follows the first bytes of a text: shorter texts first where all bytes are
/// equal.
constexpr std::size_t textBytes = 7;

Word textWord(std::string_view text) {
    Word word = 0;
    for (std::size_t k = 0; k < textBytes; ++k) {
        word = (word | (k < text.size() ? static_cast<unsigned char>(text[k]) : 0U)) << 8U;
    }
    return word | std::min(text.size(), textBytes + 1);
}

/// Sorts rows by one column after the other, each time only the rows that are still tied.
class Sorting {
public:
    Sorting(Rows const& rows, bool ascending) : rows_(rows), flip_(ascending ? 0 : ~Word{0}) {
        places_.reserve(rows.size());
        for (std::size_t place = 0; place < rows.size(); ++place) {
            places_.push_back({0, place});
        }
        tied_.push_back({0, rows.size(), 0});
    }

    void sortBy(Column const& column, Survey const& survey) {
        for (Range& range : tied_) {
            range.alike = survey.common.size();
        }
        if (survey.mixesKinds()) {
            refine(column, kindWord, [&](Range const& run) { tied_.push_back(run); });
        }
        std::vector<Range> done;
        for (bool again = false; !tied_.empty(); again = true) {
            refine(column, wordOf,
                   [&](Range run) { (goesOn(column, run, again) ? tied_ : done).push_back(run); });
        }
        tied_ = std::move(done);
    }

    Rows rows() const {
        Rows sorted;
        sorted.reserve(places_.size());
        for (KeyedPlace const& each : places_) {
            sorted.push_back(rows_[each.place]);
        }
        return sorted;
    }

private:
    struct Range {
        std::size_t begin;
        std::size_t end;
        std::size_t alike; // that many bytes all texts begin with
    };

    static Word kindWord(Cell const& cell, std::size_t /*alike*/) {
        return cell.empty() ? 0 : cell.isA() == Cell::NumericCell ? 1 : 2;
    }
    /// The word of a number, or that of a text behind what is alike.
    static Word wordOf(Cell const& cell, std::size_t alike) {
        if (cell.empty()) {
            return 0;
        }
        bool const number = cell.isA() == Cell::NumericCell;
        return number ? gridWord(numberOf(cell).get()) : textWord(textOf(cell).substr(alike));
    }
    /// True when there is more to the texts of a run whose words are equal. With `again` finds how far
    /// they are alike, since texts that are so for two words are often long and equal.
    bool goesOn(Column const& column, Range& run, bool again) const {
        Cell const& first = cellAt(column, run.begin);
        if (first.isA() != Cell::StringCell || textOf(first).size() <= run.alike + textBytes) {
            return false;
        }
        if (!again) {
            run.alike += textBytes;
            return true;
        }
        std::string_view common = textOf(first).substr(run.alike);
        std::size_t longest = 0;
        for (std::size_t k = run.begin; k < run.end; ++k) {
            std::string_view const text = textOf(cellAt(column, k)).substr(run.alike);
            keepCommon(common, text);
            longest = std::max(longest, text.size());
        }
        run.alike += common.size();
        return longest > common.size();
    }
    Cell const& cellAt(Column const& column, std::size_t k) const {
        return column[rows_[places_[k].place]];
    }

    /// Sorts the rows of each tie by the words of their cells, and hands out the runs that stay tied.
    template <typename WordOf, typename Tie>
    void refine(Column const& column, WordOf const& word, Tie const& tie) {
        std::vector<Range> const ranges = std::exchange(tied_, {});
        setWords(ranges, column, word);
        KeyedPlace* const places = places_.data();
        for (Range const& range : ranges) {
            sortPlaces(places + range.begin, range.end - range.begin);
            for (std::size_t k = range.begin; k < range.end;) {
                std::size_t const begin = k;
                while (k < range.end && places[k].word == places[begin].word) {
                    ++k;
                }
                if (k - begin > 1) {
                    tie(Range{begin, k, range.alike});
                }
            }
        }
    }

    /// Sets the words of the rows that are tied.
    template <typename WordOf>
    void setWords(std::vector<Range> const& ranges, Column const& column, WordOf const& word) {
        std::size_t tied = 0;
        for (Range const& range : ranges) {
            tied += range.end - range.begin;
        }
        if (tied > places_.size() / 8) {
            setWordsInOrder(ranges, column, word);
            return;
        }
        for (Range const& range : ranges) {
            for (std::size_t k = range.begin; k < range.end; ++k) {
                places_[k].word = word(cellAt(column, k), range.alike) ^ flip_;
            }
        }
    }

    /// The same for many rows. Reads the column in the order given, in which its cells and texts most
    /// likely lie in memory: to jump about in them takes up to twice as long.
    template <typename WordOf>
    void setWordsInOrder(std::vector<Range> const& ranges, Column const& column, WordOf const& word) {
        constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
        Rows positions(rows_.size(), none);
        for (Range const& range : ranges) {
            for (std::size_t k = range.begin; k < range.end; ++k) {
                positions[places_[k].place] = k;
                places_[k].word = range.alike;
            }
        }
        for (std::size_t place = 0; place < rows_.size(); ++place) {
            if (positions[place] != none) {
                Word& each = places_[positions[place]].word;
                each = word(column[rows_[place]], each) ^ flip_;
            }
        }
    }

    Rows const& rows_;
    Word flip_; // turns the words round to sort in descending order
    KeyedPlaces places_;
    std::vector<Range> tied_;
};

} // namespace

std::optional<Rows> orderedBySorting(std::vector<Column> const& keys, Rows const& rows, bool ascending) {
    std::vector<Survey> surveys;
    for (Column const& key : keys) {
        surveys.emplace_back(key, rows);
        if (!surveys.back().honest) {
            return std::nullopt;
        }
    }
    Sorting sorting(rows, ascending);
    for (std::size_t k = 0; k < keys.size(); ++k) {
        sorting.sortBy(keys[k], surveys[k]);
    }
    return sorting.rows();
}

} // namespace QX
