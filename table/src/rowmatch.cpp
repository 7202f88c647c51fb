#include "table/src/rowmatch.h"

#include "base/fastpaths.h"
#include "base/strview.h"
#include "cell/cellequal.h"
#include "cell/cellkeys.h"
#include "cell/cellvalue.h"
#include "cell/numbertext.h"
#include "cell/texthash.h"

#include <bit>
#include <cmath>
#include <numeric>
#include <utility>

namespace QX {

namespace {

Str textOfNumber(AnalyticDouble const& number) {
    Str text;
    Cell(number).get(text, 0);
    return text;
}

std::uint64_t numberKey(double number) {
    return spread(std::bit_cast<std::uint64_t>(number));
}

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
                values_.add(key, c);
            }
        }
        values_.close();
    }

    /// Calls `like` with each value that a cell may equal, perhaps more than once.
    template <typename Like>
    void forEachLike(Cell const& cell, Like const& like) const {
        for (std::uint64_t const key : keysOf(cell, dates_)) {
            values_.find(key, [&](std::size_t c) {
                like(c);
                return false; // go on
            });
        }
    }

private:
    KeyTable values_;
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
        values[c].get(text, 0); // stays empty where the value has no text
        AnalyticDouble const number = readNumber(viewOf(text));
        if (number.isValid() && textOfNumber(number) == text) {
            numbers_.add(numberKey(number.get()), 0);
        }
        texts_.add(textHash(viewOf(text)), kept_.size());
        kept_.push_back(std::move(text));
    }
    numbers_.close();
    texts_.close();
}

bool ExcludedTexts::passes(Cell const& cell) const {
    if (cell.isA() == Cell::StringCell) {
        return passes(textOf(cell), textHash(cell));
    }
    if (fastPaths && cell.isA() == Cell::NumericCell && std::isfinite(numberOf(cell).get())) {
        // Numbers have one text each, from which they can be read back.
        return !numbers_.find(numberKey(numberOf(cell).get()), [](std::size_t) { return true; });
    }
    Str text;
    cell.get(text, 0);
    return passes(viewOf(text), textHash(viewOf(text)));
}

bool ExcludedTexts::passes(std::string_view text, std::uint64_t hash) const {
    return (keepEmpty_ || !text.empty()) &&
           !texts_.find(hash, [&](std::size_t k) { return viewOf(kept_[k]) == text; });
}

} // namespace QX
