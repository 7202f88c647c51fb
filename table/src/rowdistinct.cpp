#include "table/src/rowdistinct.h"

#include "cell/cellvalue.h"
#include "cell/numbertext.h"
#include "table/src/rowset.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

namespace QX {

namespace {

using Hash = std::uint64_t;

Hash mixed(Hash seed, Hash value) {
    Hash const spread = (seed ^ value) * 0x9E3779B97F4A7C15U;
    return spread ^ (spread >> 32U);
}

/// Hashes the cells of one column so that cells which may equal each other get the same hash.
class ColumnHashes {
public:
    explicit ColumnHashes(Column const& column) {
        hashes_.reserve(column.items());
        for (std::size_t j = 0; j < column.items() && honest_; ++j) {
            hashes_.push_back(hash(column[j]));
        }
        honest_ = honest_ && !(mixesDates_ && !numbers_.empty()) && !hasNeighbours();
    }

    /// Mixes the hashes into those of the rows; does nothing when equality is not transitive in this
    /// column.
    void mixInto(std::vector<Hash>& rows) const {
        for (std::size_t j = 0; j < rows.size() && honest_; ++j) {
            rows[j] = mixed(rows[j], hashes_[j]);
        }
    }

private:
    Hash hash(Cell const& cell) {
        CellValue const value = valueOf(cell);
        switch (value.kind) {
        case Cell::EmptyCell:
        case Cell::ErrorCell:
            return 0; // a text without characters may equal either
        case Cell::StringCell:
            mixesDates_ = mixesDates_ || isDate(cell);
            return value.text.empty() ? 0 : std::hash<std::string_view>()(value.text);
        case Cell::NumericCell:
            return hash(value.number);
        case Cell::TableCell:
            return reinterpret_cast<std::uintptr_t>(value.table);
        }
        return 0;
    }

    Hash hash(AnalyticDouble const& number) {
        double const value = number.get() == 0 ? 0.0 : number.get(); // one zero for both
        bool const smallest = std::fabs(value) == std::numeric_limits<double>::denorm_min();
        honest_ = honest_ && number.isValid() && !std::isnan(value) && !smallest;
        numbers_.push_back(value);
        return std::bit_cast<Hash>(value);
    }

    bool hasNeighbours() {
        constexpr double exact =
            4503599627370496.0; // whole numbers below it are never next to each other
        auto const apart = [](double value) {
            return std::trunc(value) == value && std::fabs(value) < exact;
        };
        if (!honest_ || std::all_of(numbers_.begin(), numbers_.end(), apart)) {
            return false;
        }
        std::sort(numbers_.begin(), numbers_.end());
        return std::adjacent_find(numbers_.begin(), numbers_.end(), [](double a, double b) {
                   return a != b && equalNumbers(a, b);
               }) != numbers_.end();
    }

    std::vector<Hash> hashes_;
    std::vector<double> numbers_;
    bool mixesDates_ = false;
    bool honest_ = true;
};

bool equalRows(TableImplementation const& table, std::size_t earlier, std::size_t later) {
    for (std::size_t i = 0; i < table.indices(); ++i) {
        if (!table.get(i, earlier).compare(table.get(i, later), false)) {
            return false;
        }
    }
    return true;
}

/// Compares each row with the kept rows of its hash, which is one and the same for rows that are equal.
Rows distinctWithin(TableImplementation const& table, std::vector<Hash> const& hashes) {
    RowSet kept(hashes.size());
    Rows rows;
    for (std::size_t j = 0; j < hashes.size(); ++j) {
        bool const added =
            kept.insert(j, hashes[j], [&](std::size_t earlier) { return equalRows(table, earlier, j); });
        if (added && j > 0) {
            rows.push_back(j);
        }
    }
    return rows;
}

} // namespace

Rows distinctRows(TableImplementation const& table) {
    std::size_t const height = table.items();
    std::vector<Hash> hashes(height);
    for (std::size_t i = 0; i < table.indices(); ++i) {
        ColumnHashes(table.column(i, height)).mixInto(hashes);
    }
    return distinctWithin(table, hashes);
}

Rows distinctByComparing(TableImplementation const& table) {
    return distinctWithin(table, std::vector<Hash>(table.items()));
}

} // namespace QX
