#include "table/src/rowmatch.h"

#include "base/fastpaths.h"
#include "base/strview.h"
#include "cell/cellequal.h"
#include "cell/cellkeys.h"
#include "cell/cellvalue.h"

#include <bit>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>

namespace QX {

namespace {

/// The values of a condition by their keys.
class SoughtValues {
public:
    explicit SoughtValues(Column const& values) {
        dates_.ofTexts = false;
        dates_.ofNumbers = false;
        for (std::size_t c = 1; c < values.items(); ++c) {
            dates_.ofTexts = dates_.ofTexts || values[c].isA() == Cell::NumericCell;
            dates_.ofNumbers = dates_.ofNumbers || isDate(values[c]);
            for (std::uint64_t const key : keysFor(values[c])) {
                entries_.push_back({key, c, none});
            }
        }
        heads_.assign(std::bit_ceil(2 * entries_.size() + 1), none);
        for (std::size_t k = 0; k < entries_.size(); ++k) {
            entries_[k].next = std::exchange(heads_[entries_[k].key & (heads_.size() - 1)], k);
        }
    }

    /// Calls `like` with each value that a cell may equal, perhaps more than once.
    template <typename Like>
    void forEachLike(Cell const& cell, Like const& like) const {
        for (std::uint64_t const key : keysOf(cell, dates_)) {
            for (std::size_t k = heads_[key & (heads_.size() - 1)]; k != none; k = entries_[k].next) {
                if (entries_[k].key == key) {
                    like(entries_[k].value);
                }
            }
        }
    }

private:
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    struct Entry {
        std::uint64_t key;
        std::size_t value;
        std::size_t next; // among those whose keys have the same low bits
    };

    std::vector<Entry> entries_;
    std::vector<std::size_t> heads_;
    DateKeys dates_;
};

} // namespace

Rows rowsOfValues(Column const& column, Column const& values) {
    constexpr std::size_t few = 1; // so many values are compared sooner than looked up
    bool const plain = !fastPaths || values.items() <= few + 1;
    return plain ? rowsByComparing(column, values) : rowsByKeys(column, values);
}

Rows rowsByComparing(Column const& column, Column const& values) {
    Rows rows;
    for (std::size_t c = 1; c < values.items(); ++c) {
        for (std::size_t j = 1; j < column.items(); ++j) {
            if (equalCells(column[j], values[c], false)) {
                rows.push_back(j);
            }
        }
    }
    return rows;
}

Rows rowsByKeys(Column const& column, Column const& values) {
    SoughtValues const sought(values);
    struct Found {
        std::size_t value;
        std::size_t row;
    };
    std::vector<Found> found;
    std::vector<std::size_t> ends(values.items()); // first the number of rows of each value
    std::vector<std::size_t> last(values.items());
    for (std::size_t j = 1; j < column.items(); ++j) {
        Cell const& cell = column[j];
        sought.forEachLike(cell, [&](std::size_t c) {
            bool const listed = last[c] == j; // by another key
            if (!listed && equalCells(cell, values[c], false)) {
                found.push_back({c, j});
                last[c] = j;
                ++ends[c];
            }
        });
    }
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    Rows rows(found.size());
    for (std::size_t k = found.size(); k-- > 0;) {
        rows[--ends[found[k].value]] = found[k].row;
    }
    return rows;
}

ExcludedTexts::ExcludedTexts(TableImplementation const& conditions, std::size_t k, bool keepEmpty)
    : keepEmpty_(keepEmpty) {
    Column const values = conditions.column(k);
    for (std::size_t c = 1; c < values.items(); ++c) {
        Str text;
        texts_.emplace(readText(values[c], text));
    }
}

bool ExcludedTexts::passes(Cell const& cell) const {
    Str kept;
    std::string_view const text = readText(cell, kept);
    return (keepEmpty_ || !text.empty()) && !texts_.contains(text);
}

std::string_view ExcludedTexts::readText(Cell const& cell, Str& text) {
    if (cell.isA() == Cell::StringCell) {
        return textOf(cell);
    }
    cell.get(text, 0);
    return viewOf(text);
}

} // namespace QX
