#include "failure.h"
#include "keys.h"
#include "verbs.h"

#include <qx/text.h>

#include <algorithm>
#include <unordered_map>

namespace qxtab {

namespace {

int const different = 1;
int const trouble = 2;

bool sameFields(Data const& left, std::size_t leftColumn, std::size_t i, Data const& right,
                std::size_t rightColumn, std::size_t j, bool ignoreCase) {
    QX::Cell const& a = left.cell(leftColumn, i);
    QX::Cell const& b = right.cell(rightColumn, j);
    if (left.types[leftColumn] == ColumnType::Number && right.types[rightColumn] == ColumnType::Number) {
        std::optional<double> const number = numberOf(a);
        if (number && number == numberOf(b)) {
            return true;
        }
    }
    return a.isA() == b.isA() ? a.compare(b, ignoreCase) : textOf(a) == textOf(b);
}

/// The columns of two tables with the same name.
struct Common {
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    Positions onlyLeft;
    Positions onlyRight;
};

Common commonColumns(Data const& left, Data const& right) {
    std::unordered_map<std::string, std::size_t> places;
    for (std::size_t j = 0; j < right.columns(); ++j) {
        places.emplace(right.name(j), j);
    }
    Common common;
    std::vector<bool> paired(right.columns());
    for (std::size_t i = 0; i < left.columns(); ++i) {
        auto const found = places.find(left.name(i));
        if (found == places.end() || paired[found->second]) {
            common.onlyLeft.push_back(i);
        } else {
            common.pairs.emplace_back(i, found->second);
            paired[found->second] = true;
        }
    }
    for (std::size_t j = 0; j < right.columns(); ++j) {
        if (!paired[j]) {
            common.onlyRight.push_back(j);
        }
    }
    return common;
}

/// Lists changes: what, the fields of the keys, the column, and both sides.
class Changes {
public:
    Changes(Data const& left, Data const& right, std::vector<std::string> const& keys, bool ignoreCase)
        : left_(left), right_(right), leftKeys_(columnsOf(left, keys)),
          rightKeys_(columnsOf(right, keys)), common_(commonColumns(left, right)),
          ignoreCase_(ignoreCase), cells_(4 + keys.size()) {}

    void columns() {
        for (std::size_t const column : common_.onlyLeft) {
            add("column removed", nullptr, 0, left_.name(column));
        }
        for (std::size_t const column : common_.onlyRight) {
            add("column added", nullptr, 0, right_.name(column));
        }
    }
    void removed(std::size_t row) { add("removed", &left_, row, ""); }
    void added(std::size_t row) { add("added", &right_, row, ""); }
    void changed(std::size_t leftRow, std::size_t rightRow) {
        for (auto const& [i, j] : common_.pairs) {
            if (!sameFields(left_, i, leftRow, right_, j, rightRow, ignoreCase_)) {
                add("changed", &left_, leftRow, left_.name(i), left_.cell(i, leftRow),
                    right_.cell(j, rightRow));
            }
        }
    }
    bool any() const { return !cells_.front().empty(); }
    Data table() &&;

private:
    void add(char const* what, Data const* side, std::size_t row, std::string const& column,
             QX::Cell const& before = {}, QX::Cell const& after = {}) {
        cells_[0].push_back(QX::textCell(what));
        Positions const& keys = side == &right_ ? rightKeys_ : leftKeys_;
        for (std::size_t k = 0; k < keys.size(); ++k) {
            cells_[1 + k].push_back(side == nullptr ? QX::Cell() : side->cell(keys[k], row));
        }
        std::size_t const next = 1 + keys.size();
        cells_[next].push_back(column.empty() ? QX::Cell() : QX::textCell(column));
        cells_[next + 1].push_back(before);
        cells_[next + 2].push_back(after);
    }

    Data const& left_;
    Data const& right_;
    Positions leftKeys_;
    Positions rightKeys_;
    Common common_;
    bool ignoreCase_;
    std::vector<std::vector<QX::Cell>> cells_;
};

Data Changes::table() && {
    QX::Ptr<QX::Table> const made(new QX::Table(left_.table->name()));
    std::size_t const next = 1 + leftKeys_.size();
    char const* const headings[] = {"column", "left", "right"};
    for (std::size_t k = 0; k < cells_.size(); ++k) {
        std::string const name = k == 0     ? "change"
                                 : k < next ? left_.name(leftKeys_[k - 1])
                                            : headings[k - next];
        addColumn(*made, name, std::move(cells_[k]));
    }
    return derived(left_, made);
}

// Of rows with equal keys, the first is paired with the first, the second with the second, and so on.
Outcome comparedByKey(Data const& left, Data const& right, std::vector<std::string> const& names,
                      bool ignoreCase) {
    KeyPair const keys = keysOf(left, columnsOf(left, names), right, columnsOf(right, names));
    QX::RowMatches const found =
        QX::matchRows(*keys.left.table, keys.left.columns, *keys.right.table, keys.right.columns);
    Changes changes(left, right, names, ignoreCase);
    changes.columns();
    Positions next = found.first; // of the first row with these keys, the partner of the next
    Positions partners(found.first.size(), QX::Table::npos);
    std::unordered_map<std::size_t, std::size_t> cursor; // by the first matching row
    std::vector<bool> matched(found.next.size());
    for (std::size_t i = 1; i < found.first.size(); ++i) {
        std::size_t const first = found.first[i];
        auto const at = cursor.emplace(first, first).first;
        std::size_t const partner = at->second;
        if (partner == QX::Table::npos) {
            changes.removed(i);
        } else {
            at->second = found.next[partner];
            matched[partner] = true;
            changes.changed(i, partner);
        }
    }
    for (std::size_t j = 1; j < matched.size(); ++j) {
        if (!matched[j]) {
            changes.added(j);
        }
    }
    int const code = changes.any() ? different : 0;
    return {std::move(changes).table(), code};
}

// The second table with the first one's fields where numbers are equal and written otherwise.
Table withEqualNumbers(Data const& left, Data const& right) {
    QX::Ptr<QX::Table> const made(new QX::Table(right.table->name()));
    std::unordered_map<std::size_t, std::size_t> partner;
    for (auto const& [i, j] : commonColumns(left, right).pairs) {
        partner.emplace(j, i);
    }
    std::size_t const rows = right.rows();
    for (std::size_t j = 0; j < right.columns(); ++j) {
        auto const other = partner.find(j);
        std::vector<QX::Cell> cells{right.cell(j, 0)};
        for (std::size_t row = 1; row <= rows; ++row) {
            bool const same = other != partner.end() && row <= left.rows() &&
                              sameFields(left, other->second, row, right, j, row, false);
            cells.push_back(same ? left.cell(other->second, row) : right.cell(j, row));
        }
        QX::addIndex(*made, std::move(cells));
    }
    return made;
}

Outcome comparedByPosition(Data const& left, Data const& right, bool ignoreCase) {
    QX::Ptr<QX::Table> differences;
    require(left.table->compare(withEqualNumbers(left, right), differences, ignoreCase));
    return {derived(left, differences), differences->indices() == 0 ? 0 : different};
}

Action prepareCompare(Arguments const& arguments) {
    std::vector<std::string> const by = arguments.names("by");
    bool const ignoreCase = arguments.has("ignore-case");
    return [by, ignoreCase](Data const& data, std::vector<Data> const& others) -> Outcome {
        return by.empty() ? comparedByPosition(data, others.front(), ignoreCase)
                          : comparedByKey(data, others.front(), by, ignoreCase);
    };
}

} // namespace

Verb const compareVerb = {
    "compare",
    "List how the second file differs from the first, the left one",
    {{{"by", "LIST", "Pair rows by these columns, and list rows that were added, removed or changed"},
      {"ignore-case", nullptr, "Take ASCII letters of both cases as equal"}},
     {},
     false,
     1,
     1},
    "Without --by rows are paired by position: one row for each difference, where it is (/NAME[ROW], "
    "row 0\n"
    "being the names) and what is left and right; \"missing\" where a side has no such column or row. "
    "Columns\n"
    "are paired by name. Numbers are equal by value where both columns are of numbers.\n"
    "Exit status: 0 when nothing differs, 1 when something does, 2 for any trouble.",
    "qxtab compare --by id old.csv new.csv",
    prepareCompare,
    false,
    "text",
    trouble,
};

} // namespace qxtab
