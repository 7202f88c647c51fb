#include "table/rows/rowmatch.h"

#include "cell/equality.h"
#include "memory/fastpaths.h"
#include "table/rows/columnprofile.h"
#include "table/rows/keyindex.h"

#include <numeric>
#include <utility>

namespace QX {

namespace {

/// The values of a condition by the keys under which the cells that equal them are filed.
class SoughtValues {
public:
    /// For the cells of a column.
    SoughtValues(ColumnView const& values, ColumnView const& column) : keys_(values.items()) {
        ColumnKinds const kinds(values);
        dates_.ofTexts = kinds.numbers || kinds.notValid;
        Findable findable;
        if (dates_.ofTexts) {
            ColumnKinds const cells(column);
            findable = {!cells.exactIntegers, cells.texts};
        }
        for (std::size_t c = 1; c < values.items(); ++c) {
            dates_.ofNumbers = dates_.ofNumbers || isDate(values[c]);
            forEachKeyFor(keys_.hash(), values[c], findable, [&](MatchKey const& key) { add(key, c); });
        }
    }

    /// Calls `use` once with each value that a cell equals.
    template <typename Use>
    void forEachEqual(Cell const& cell, Use const& use) const {
        forEachKeyOf(keys_.hash(), cell, dates_, [&](MatchKey const& key) {
            std::size_t const found = keys_.find(key);
            for (std::size_t k = found == KeyIndex::none ? found : last_[found]; k != KeyIndex::none;
                 k = entries_[k].former) {
                use(entries_[k].value);
            }
        });
    }

private:
    struct Entry {
        std::size_t value;
        std::size_t former; // of the same key
    };

    void add(MatchKey const& key, std::size_t value) {
        std::size_t const number = keys_.add(key);
        if (number == last_.size()) {
            last_.push_back(KeyIndex::none);
        }
        entries_.push_back({value, std::exchange(last_[number], entries_.size())});
    }

    DateKeys dates_{false, false};
    KeyIndex keys_;
    BlockVector<std::size_t> last_; // for each key the last of its entries
    BlockVector<Entry> entries_;
};

/// The rows in the order of the values that they equal.
class FoundRows {
public:
    explicit FoundRows(std::size_t values) : ends_(values) {}

    void add(std::size_t value, std::size_t row) {
        found_.push_back({value, row});
        ++ends_[value];
    }
    Rows byValue() {
        std::partial_sum(ends_.begin(), ends_.end(), ends_.begin());
        Rows rows(found_.size());
        for (std::size_t k = found_.size(); k-- > 0;) {
            rows[--ends_[found_[k].value]] = found_[k].row;
        }
        return rows;
    }

private:
    struct Found {
        std::size_t value;
        std::size_t row;
    };

    BlockVector<Found> found_;
    BlockVector<std::size_t> ends_; // the number of rows of each value, then where they end
};

} // namespace

Rows rowsOfValues(ColumnView const& column, ColumnView const& values) {
    constexpr std::size_t few = 1; // so many values are compared sooner than looked up
    bool const plain = !fastPaths || values.items() <= few + 1;
    return plain ? rowsByComparing(column, values) : rowsByKeys(column, values);
}

Rows rowsByComparing(ColumnView const& column, ColumnView const& values) {
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

Rows rowsByKeys(ColumnView const& column, ColumnView const& values) {
    SoughtValues const sought(values, column);
    FoundRows found(values.items());
    for (std::size_t j = 1; j < column.items(); ++j) {
        sought.forEachEqual(column[j], [&](std::size_t c) { found.add(c, j); });
    }
    return found.byValue();
}

} // namespace QX
