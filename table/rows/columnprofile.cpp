#include "table/rows/columnprofile.h"

#include "cell/dates.h"
#include "cell/view.h"
#include "table/rows/adjacent.h"
#include "table/rows/ulpindex.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace QX {

std::string_view commonPrefix(std::string_view left, std::string_view right) {
    if (left.data() == right.data()) { // cells that share a text, perhaps a long one
        return left.size() < right.size() ? left : right;
    }
    if (right.starts_with(left)) {
        return left;
    }
    auto const differ = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return left.substr(0, static_cast<std::size_t>(differ.first - left.begin()));
}

namespace {

/// Calls `use` with the cells of a column but for its name.
auto allOf(ColumnView const& column) {
    return [&column](auto const& use) {
        for (std::size_t j = 1; j < column.items(); ++j) {
            use(column[j]);
        }
    };
}

auto someOf(ColumnView const& column, Rows const& rows) {
    return [&column, &rows](auto const& use) {
        for (std::size_t const row : rows) {
            use(column[row]);
        }
    };
}

} // namespace

ColumnKinds::ColumnKinds(ColumnView const& column) {
    allOf(column)([&](Cell const& cell) { add(cell); });
}

ColumnKinds::ColumnKinds(ColumnView const& column, Rows const& rows) {
    someOf(column, rows)([&](Cell const& cell) { add(cell); });
}

ColumnProfile::ColumnProfile(ColumnView const& column) : ColumnKinds(column) {
    lookFurther(allOf(column));
}

ColumnProfile::ColumnProfile(ColumnView const& column, Rows const& rows) : ColumnKinds(column, rows) {
    lookFurther(someOf(column, rows));
}

template <typename ForEach>
void ColumnProfile::lookFurther(ForEach const& forEach) {
    if (texts && (numbers || notValid)) {
        forEach([&](Cell const& cell) { datesBesideNumbers = datesBesideNumbers || isDate(cell); });
    }
    if (!exactIntegers) {
        BlockVector<std::uint64_t> words;
        forEach([&](Cell const& cell) {
            if (cell.isA() == Cell::NumericCell) {
                words.push_back(ulpWord(numberOf(cell).get()));
            }
        });
        adjacentDoubles = hasAdjacentDoubles(words);
    }
}

void ColumnKinds::add(Cell const& cell) {
    switch (cell.isA()) {
    case Cell::EmptyCell:
        empties = true;
        break;
    case Cell::StringCell:
        addText(textOf(cell));
        break;
    case Cell::NumericCell:
        (numberOf(cell).isValid() ? numbers : notValid) = true;
        addNumber(numberOf(cell).get());
        break;
    case Cell::TableCell:
        tables = true;
        break;
    case Cell::ErrorCell:
        errors = true;
        break;
    }
}

void ColumnKinds::addNumber(double number) {
    nans = nans || std::isnan(number);
    exactIntegers = exactIntegers && isExactInteger(number);
}

void ColumnKinds::addText(std::string_view text) {
    if (text.empty()) {
        emptyTexts = true;
        return;
    }
    common = texts ? commonPrefix(common, text) : text;
    texts = true;
}

} // namespace QX
