#include "cell/cellvalue.h"

#include "cell/cellnumeric.h"
#include "cell/cellstring.h"
#include "cell/celltable.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace QX {

CellValue valueOf(Cell const& cell) {
    CellValue value;
    CellImplementation const& body = CellImplementation::of(cell);
    value.kind = body.isA();
    switch (value.kind) {
    case Cell::EmptyCell:
    case Cell::ErrorCell:
        break;
    case Cell::StringCell: {
        Str const& text = static_cast<CellString const&>(body).text();
        value.text = std::string_view(text.data(), text.size());
        break;
    }
    case Cell::NumericCell:
        value.number = static_cast<CellNumeric const&>(body).value();
        break;
    case Cell::TableCell:
        value.table = static_cast<CellTable const&>(body).table();
        break;
    }
    return value;
}

bool equalNumbers(double a, double b) {
    if (std::fabs(a - b) <= 0) {
        return true;
    }
    if (std::signbit(a) != std::signbit(b)) {
        return false;
    }
    auto const aBits = std::bit_cast<std::int64_t>(a);
    auto const bBits = std::bit_cast<std::int64_t>(b);
    return std::abs(aBits - bBits) <= 1;
}

bool isDate(std::string_view text) {
    constexpr std::size_t dateLength = 10;
    return text.size() == dateLength && Date(std::string(text), Str()).isValid();
}

} // namespace QX
