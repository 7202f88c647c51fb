#include "table/rows/rowcontent.h"

#include "cell/equality.h"
#include "cell/view.h"
#include "table/rows/ulpindex.h"

#include <algorithm>

namespace QX {

namespace {

std::uint64_t hashOf(Cell const& cell, MatchHash const& by, std::uint64_t seed) {
    switch (cell.isA()) {
    case Cell::StringCell:
        return by.ofText(cell, seed);
    case Cell::NumericCell:
        return by.ofWord(ulpWord(numberOf(cell).get()), seed);
    case Cell::TableCell:
        return by.ofWord(reinterpret_cast<std::uintptr_t>(nestedIn(cell)), seed);
    case Cell::EmptyCell:
    case Cell::ErrorCell:
        break;
    }
    return by.ofWord(0, seed);
}

template <typename T>
int compareValues(T const& left, T const& right) {
    return left < right ? -1 : right < left ? 1 : 0;
}

} // namespace

RowHashes hashRows(std::vector<ColumnView> const& columns, std::size_t rows, MatchHash const& by) {
    RowHashes hashes(rows);
    for (ColumnView const& column : columns) {
        for (std::size_t j = 0; j < rows; ++j) {
            hashes[j] = hashOf(column[j], by, hashes[j]);
        }
    }
    return hashes;
}

bool RowContent::equals(std::size_t earlier) const {
    return std::all_of(columns.begin(), columns.end(), [&](ColumnView const& column) {
        return equalCells(column[earlier], column[row], false);
    });
}

int RowContent::compare(std::size_t earlier) const {
    for (ColumnView const& column : columns) {
        if (int const order = compareContents(column[row], column[earlier]); order != 0) {
            return order;
        }
    }
    return 0;
}

int compareContents(Cell const& left, Cell const& right) {
    if (left.isA() != right.isA()) {
        return compareValues(left.isA(), right.isA());
    }
    switch (left.isA()) {
    case Cell::StringCell:
        return textOf(left).compare(textOf(right));
    case Cell::NumericCell:
        return compareValues(ulpIndex(numberOf(left).get()), ulpIndex(numberOf(right).get()));
    case Cell::TableCell:
        return compareValues(reinterpret_cast<std::uintptr_t>(nestedIn(left)),
                             reinterpret_cast<std::uintptr_t>(nestedIn(right)));
    case Cell::EmptyCell:
    case Cell::ErrorCell:
        break;
    }
    return 0;
}

} // namespace QX
