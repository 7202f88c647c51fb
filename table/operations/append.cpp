#include "base/makeptr.h"
#include "cell/print.h"
#include "table/model/bodies.h"
#include "table/model/name.h"
#include "table/model/namelookup.h"
#include "table/operations/operations.h"
#include "table/rows/gather.h"
#include "table/rows/rowindex.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace QX {

namespace {

/// True for cells that hold the same or equal texts, and so display the same. Cells that are equal by
/// Cell::compare() may not.
bool sameCells(Cell const& left, Cell const& right) {
    return sameBits(left, right) || (left.isA() == Cell::StringCell && right.isA() == Cell::StringCell &&
                                     textOf(left) == textOf(right));
}

/// Adds the rows that a copy of index i of `table` lacks, and empty ones up to `height`.
void copyRows(TableImplementation const& table, std::size_t i, std::size_t height, Column& copy) {
    if (i < table.indices() && copy.size() < table.columns()[i].size()) {
        copy.append(std::span(table.columns()[i]).subspan(copy.size()));
    }
    copy.resize(std::max(copy.size(), height));
}

/// Writes what the cells of row j display.
void displayRow(TableImplementation const& table, std::size_t j, std::string& text) {
    text.clear();
    for (std::size_t i = 0; i < table.indices(); ++i) {
        text += ':';
        appendDisplayText(text, table.get(i, j));
    }
}

/// Row j by what it displays, to look up among rows; `texts` keeps what they display once it was needed.
struct DisplayedRow {
    bool equals(std::size_t earlier) const {
        return std::all_of(views.begin(), views.end(),
                           [&](ColumnView const& view) { return sameCells(view[earlier], view[j]); }) ||
               compare(earlier) == 0;
    }
    int compare(std::size_t earlier) const {
        std::string& other = texts[earlier];
        if (other.empty()) {
            displayRow(table, earlier, other);
        }
        return text.compare(other);
    }

    std::uint64_t hash;
    TableImplementation const& table;
    std::vector<ColumnView> const& views;
    std::unordered_map<std::size_t, std::string>& texts;
    std::size_t j;
    std::string const& text;
};

/// The rows, without the names row, that don't display like an earlier one.
Rows distinctTexts(TableImplementation const& table) {
    std::vector<ColumnView> const views = table.views();
    return withRowIndex([&](MatchHash const& hash, RowIndex::Kind kind) -> std::optional<Rows> {
        RowIndex index(table.items(), kind);
        std::unordered_map<std::size_t, std::string> texts;
        std::string text;
        Rows rows;
        for (std::size_t j = 0; j < table.items() && !index.full(); ++j) {
            displayRow(table, j, text);
            DisplayedRow const row{hash.ofText(text), table, views, texts, j, text};
            if (index.insert(row, j) == j && j > 0) {
                rows.push_back(j);
            }
        }
        return index.full() ? std::nullopt : std::optional(std::move(rows));
    });
}

/// Drops all rows but the names row and the given ones, which ascend.
void keepRows(TableImplementation& table, Rows const& rows) {
    std::size_t const height = table.items();
    bool const few = rows.size() < height / 2; // which should not take the room of all
    for (std::size_t i = 0; i < table.indices(); ++i) {
        Column& column = table.columns()[i];
        if (few) {
            column = gathered(table.view(i, height), rows);
            continue;
        }
        column.resize(height);
        for (std::size_t k = 0; k < rows.size(); ++k) {
            column[k + 1] = std::move(column[rows[k]]);
        }
        column.resize(rows.size() + 1);
    }
}

/// Appends the rows of the operand to an empty table that is to begin with those of `table`.
void appendRows(TableImplementation const& table, TableImplementation const& operand, bool addIndices,
                TableImplementation& appended) {
    std::size_t const height = table.items();
    std::size_t const base = std::max<std::size_t>(height, 1); // where the operand's row 1 goes
    std::size_t const added = std::max<std::size_t>(operand.items(), 1) - 1;
    std::size_t const room = base + std::min(added, base); // little, where nothing is appended
    for (std::size_t i = 0; i < table.indices() && height > 0; ++i) {
        appended.addReserved(room).push_back(
            table.get(i, 0)); // the rows follow when their number is known
    }
    NameLookup lookup(appended);
    for (std::size_t k = 0; k < operand.indices(); ++k) {
        Str name; // stays empty when the name has no text
        (void)operand.get(k, 0).get(name, 0);
        Cell const nameCell = soughtName(operand.get(k, 0), name);
        std::size_t target = lookup.find(nameCell);
        if (target == Table::npos) {
            if (!addIndices) {
                continue;
            }
            target = appended.indices();
            appended.addSized(nameCell, 1);
        }
        if (added == 0) {
            continue;
        }
        Column& column = appended.columns()[target];
        column.reserve(base + added);
        copyRows(table, target, base, column);
        column.resize(base);
        Column const& source = operand.columns()[k];
        if (source.size() > 1) {
            column.append(std::span(source).subspan(1));
        }
        column.resize(base + added);
    }
    for (std::size_t i = 0; i < table.indices() && height > 0; ++i) {
        copyRows(table, i, height, appended.columns()[i]);
    }
}

} // namespace

Status Operations::append(TableImplementation const& table, TableImplementation const& operand,
                          Ptr<Table>& result, bool addIndices, bool distinct) {
    requireOther(table, result);
    Ptr<Table> const made = makePtr<Table>(operand.name() + " and " + table.name());
    result = made;
    TableImplementation& appended = madeBody(made);
    appendRows(table, operand, addIndices, appended);
    if (distinct) {
        keepRows(appended, distinctTexts(appended));
    }
    return Status();
}

} // namespace QX
