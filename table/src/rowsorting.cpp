// The fast way to order rows: the keys are turned into words of 64 bits, which are sorted in their place.

#include "cell/cellvalue.h"
#include "cell/numbergrid.h"
#include "table/src/keyedplaces.h"
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

Word gridWord(double number) {
    return static_cast<Word>(gridPlace(number)) ^ Word { 1 } << 63U;
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
        if (!text.starts_with(common)) {
            auto const differ = std::mismatch(common.begin(), common.end(), text.begin(), text.end());
            common = common.substr(0, static_cast<std::size_t>(differ.first - common.begin()));
        }
    }

    /// True when two different numbers are next to each other, and so equal.
    static bool hasNeighbours(Column const& column, Rows const& rows) {
        KeyedPlaces places;
        for (std::size_t const row : rows) {
            if (column[row].isA() == Cell::NumericCell && !column[row].empty()) {
                places.push_back({gridWord(numberOf(column[row]).get()), places.size()});
            }
        }
        sortPlaces(places.data(), places.size());
        return std::adjacent_find(places.begin(), places.end(), [](auto const& a, auto const& b) {
                   return b.word - a.word == 1;
               }) != places.end();
    }

    bool apart_ = true; // no two different numbers can be next to each other
};

/// The first word of what follows the first bytes of a text: shorter texts first where all bytes are equal.
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
        tied_.push_back({0, rows.size()});
    }

    void sortBy(Column const& column, Survey const& survey) {
        if (survey.empties + survey.numbers + survey.texts > 1) {
            refine(column, kindWord, [&](Range const& run) { tied_.push_back(run); });
        }
        std::vector<Range> done;
        for (std::size_t begin = survey.common.size(); !tied_.empty(); begin += textBytes) {
            auto const word = [begin](Cell const& cell) { return wordOf(cell, begin); };
            refine(column, word, [&](Range const& run) {
                Cell const& cell = column[rows_[places_[run.begin].place]];
                (goesOn(cell, begin + textBytes) ? tied_ : done).push_back(run);
            });
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
    };

    static Word kindWord(Cell const& cell) {
        return cell.empty() ? 0 : cell.isA() == Cell::NumericCell ? 1 : 2;
    }
    /// The word of a number, or that of a text from `begin` on.
    static Word wordOf(Cell const& cell, std::size_t begin) {
        if (cell.empty()) {
            return 0;
        }
        bool const number = cell.isA() == Cell::NumericCell;
        return number ? gridWord(numberOf(cell).get()) : textWord(textOf(cell).substr(begin));
    }
    static bool goesOn(Cell const& cell, std::size_t begin) {
        return cell.isA() == Cell::StringCell && textOf(cell).size() > begin;
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
                    tie(Range{begin, k});
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
                places_[k].word = word(column[rows_[places_[k].place]]) ^ flip_;
            }
        }
    }

    /// The same for many rows. Reads the column in the order given, in which its cells and texts most likely
    /// lie in memory: to jump about in them takes up to twice as long.
    template <typename WordOf>
    void setWordsInOrder(std::vector<Range> const& ranges, Column const& column, WordOf const& word) {
        constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
        std::vector<std::size_t> positions(rows_.size(), none);
        for (Range const& range : ranges) {
            for (std::size_t k = range.begin; k < range.end; ++k) {
                positions[places_[k].place] = k;
            }
        }
        for (std::size_t place = 0; place < rows_.size(); ++place) {
            if (positions[place] != none) {
                places_[positions[place]].word = word(column[rows_[place]]) ^ flip_;
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
