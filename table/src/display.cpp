#include "table/src/tableimpl.h"

#include <ostream>

namespace QX {

namespace {

/// The number of the next nested table; wraps around where the caller began near the largest int.
int successor(int number) {
    return static_cast<int>(static_cast<unsigned>(number) + 1U);
}

/// Writes the line of index i; `nested` is the number of the last nested table before it, and is carried on.
void displayIndex(std::ostream& os, std::size_t i, std::vector<Cell> const& index, int& nested) {
    if (i == 0) {
        os << "Index 0 <";
    } else {
        os << "      " << i << " <";
    }
    if (index.empty()) {
        os << ">";
    }
    for (std::size_t j = 0; j < index.size(); ++j) {
        if (index[j].isA() == Cell::TableCell) {
            nested = successor(nested);
            os << "`Table " << nested << "'";
        } else {
            os << index[j];
        }
        os << (j == 0 ? "> " : " ");
    }
    os << std::endl;
}

} // namespace

std::ostream& TableImplementation::display(std::ostream& os, int number) const {
    int nested = number;
    for (Index const& index : indices_) {
        for (Cell const& cell : index) {
            if (cell.isA() == Cell::TableCell) {
                nested = successor(nested);
                tableOf(cell)->display(os, nested);
            }
        }
    }
    os << "Table - ";
    if (number == -1) {
        os << name_;
    } else {
        os << number;
    }
    os << std::endl;
    nested = number;
    for (std::size_t i = 0; i < indices_.size(); ++i) {
        displayIndex(os, i, indices_[i], nested);
    }
    return os;
}

} // namespace QX
