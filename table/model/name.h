#pragma once

#include "base/strview.h"
#include "cell/plaintext.h"
#include "cell/view.h"
#include "memory/fastpaths.h"
#include "table/rows/matchkeys.h"

#include <string_view>

namespace QX {

/// A name that is looked up: the cell that Cell(Str const&) makes of its text, made only where it takes
/// more than the text's bytes to find the name. Valid as long as the text or cell that it was made of.
class Name {
public:
    explicit Name(std::string_view text)
        : text_(text), plain_(fastPaths && isPlainText(text)),
          cell_(plain_ ? shortCell(text) : Cell(toStr(text))) {}
    explicit Name(Cell const& cell)
        : text_(cell.isA() == Cell::StringCell ? textOf(cell) : std::string_view()),
          plain_(fastPaths && isPlainText(text_)), cell_(cell) {}

    /// True when the first cell of an index equals this name.
    bool matches(Cell const& first) const {
        if (!plain_) {
            return first.compare(cell_, false);
        }
        // A plain text equals no cell of another kind: it is not empty, and no number has its date.
        return text_.size() <= Detail::CellContent::longestInPlace
                   ? sameBits(first, cell_)
                   : first.isA() == Cell::StringCell && textOf(first) == text_;
    }
    /// Calls `use` with each key under which an index of an equal name is filed.
    template <typename Use>
    void forEachKey(MatchHash const& by, Use const& use) const {
        if (plain_) {
            use(MatchKey(by, text_));
        } else {
            forEachKeyFor(by, cell_, {}, use);
        }
    }
    /// The cell to name an index by.
    Cell cell() const { return cell_.isA() == Cell::EmptyCell && plain_ ? Cell(toStr(text_)) : cell_; }

private:
    /// The cell of a plain text; empty if that takes an allocation.
    static Cell shortCell(std::string_view text) {
        return text.size() <= Detail::CellContent::longestInPlace
                   ? CellImplementation::cellOf(Detail::CellContent(text.data(), text.size()))
                   : Cell();
    }

    std::string_view text_;
    bool plain_;
    Cell cell_; // empty if it is not needed
};

/// The cell to find an index by whose name an operand gives "by text": a text as it stands, also one that
/// textCell() made, otherwise what the text of the name reads as.
inline Cell soughtName(Cell const& name, Str const& text) {
    return name.isA() == Cell::StringCell ? name : Cell(text);
}

} // namespace QX
