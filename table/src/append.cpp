#include "cell/displaytext.h"
#include "cell/texthash.h"
#include "table/src/namelookup.h"
#include "table/src/rowrepeats.h"
#include "table/src/tableimpl.h"

#include <algorithm>
#include <span>
#include <string>

namespace QX {

namespace {

/// True for cells that hold the same or equal texts, and so display the same. Cells that are equal by
/// Cell::compare() may not.
bool sameCells(Cell const& left, Cell const& right) {
    return holdSame(left, right) || (left.isA() == Cell::StringCell && right.isA() == Cell::StringCell &&
                                     textOf(left) == textOf(right));
}

} // namespace

Status TableImplementation::append(TableImplementation const& operand, Ptr<Table>& result,
                                   bool addIndices, bool distinct) const {
    requireOther(result);
    Ptr<Table> const table = makePtr<Table>(operand.name_ + " and " + name_);
    result = table;
    TableImplementation& appended = made(table);
    std::size_t const height = items();
    std::size_t const base = std::max<std::size_t>(height, 1); // where the operand's row 1 goes
    std::size_t const width = operand.items();
    std::size_t const room = std::min(base + width, 2 * base); // little, where nothing is appended
    for (std::size_t i = 0; i < indices() && height > 0; ++i) {
        appended.addReserved(room).push_back(get(i, 0)); // the rows follow when their number is known
    }
    NameLookup lookup(appended);
    for (std::size_t k = 0; k < operand.indices(); ++k) {
        Str name; // stays empty when the name has no text
        operand.get(k, 0).get(name, 0);
        Cell const nameCell(name);
        std::size_t target = lookup.find(nameCell);
        if (target == npos) {
            if (!addIndices) {
                continue;
            }
            target = appended.indices();
            appended.addSized(nameCell, 1);
        }
        if (width < 2) {
            continue;
        }
        Index& index = appended.indices_[target];
        index.reserve(base + width - 1);
        copyRows(target, base, index);
        index.resize(base);
        Index const& source = operand.indices_[k];
        if (source.size() > 1) {
            index.append(std::span(source).subspan(1));
        }
        index.resize(base + width - 1);
    }
    for (std::size_t i = 0; i < indices() && height > 0; ++i) {
        copyRows(i, height, appended.indices_[i]);
    }
    if (distinct) {
        appended.keepRows(appended.distinctTexts());
    }
    return Status();
}

void TableImplementation::copyRows(std::size_t i, std::size_t height, Index& copy) const {
    if (i < indices() && copy.size() < indices_[i].size()) {
        copy.append(std::span(indices_[i]).subspan(copy.size()));
    }
    copy.resize(std::max(copy.size(), height));
}

void TableImplementation::displayRow(std::size_t j, std::string& text) const {
    text.clear();
    for (std::size_t i = 0; i < indices(); ++i) {
        text += ':';
        appendDisplayText(text, get(i, j));
    }
}

Rows TableImplementation::distinctTexts() const {
    RowHashes hashes(items());
    std::string text;
    for (std::size_t j = 0; j < hashes.size(); ++j) {
        displayRow(j, text);
        hashes[j] = textHash(text);
    }
    std::string earlierText;
    return firstRows(hashes, columns(), sameCells, [&](std::size_t earlier, std::size_t later) {
        displayRow(earlier, earlierText);
        displayRow(later, text);
        return earlierText == text;
    });
}

} // namespace QX
