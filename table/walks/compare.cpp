#include "base/makeptr.h"
#include "cell/equality.h"
#include "table/model/bodies.h"
#include "table/model/namelookup.h"
#include "table/walks/leafmatch.h"
#include "table/walks/walknested.h"
#include "table/walks/walks.h"

#include <algorithm>
#include <memory>
#include <set>
#include <string>

namespace QX {

namespace {

/// A pair of tables being compared: first at the positions that the left one has; then, in reverse, at
/// those that only the right one has.
struct Pair {
    TableImplementation const* left;
    TableImplementation const* right;
    bool repeats = false; // the left one may be met again
    bool reverse = false;
    bool paired = false; // index i has been paired
    bool aligned = true; // every index paired so far has a text for a name and its partner's place
    bool differs = false;
    std::size_t leftItems = left->items();
    std::size_t rightItems = right->items();
    std::size_t i = 0;      // an index of the near table
    std::size_t item = 0;   // and the item that the walk has come to
    std::size_t k = 0;      // the index of the far table
    std::size_t shared = 0; // the number of items that it has a position for
    std::unique_ptr<NameLookup> lookup{};

    auto key() const { return std::pair(left, right); }
    Roots<2> roots() const { return {left, right}; }
    TableImplementation const& near() const { return reverse ? *right : *left; }
    TableImplementation const& far() const { return reverse ? *left : *right; }

    /// Empty when the name of index i has no text.
    Str name() const {
        Str name;
        (void)near().get(i, 0).get(name, 0);
        return name;
    }

    /// Finds the far table's index for index i: that of its name or, without a name, of its position.
    void pairIndex() {
        Cell const& title = near().get(i, 0);
        if (title.isA() == Cell::StringCell && !textOf(title).empty()) {
            k = find(title); // as a text stands for itself
            aligned &= k == i && far().get(k, 0).isA() == Cell::StringCell;
        } else {
            Str const text = name();
            std::size_t const position = i < far().indices() ? i : Table::npos;
            k = text.empty() ? position : find(Cell(text));
            aligned = false;
        }
        shared = k == Table::npos ? 0 : reverse ? leftItems : rightItems;
        item = reverse ? shared : 0;
        paired = true;
    }

    /// True when every position of the right table has been met from the left one.
    bool covered() const {
        return aligned && right->indices() <= left->indices() && rightItems <= leftItems;
    }

    void nextIndex() {
        ++i;
        paired = false;
    }

    void turn() {
        reverse = true;
        i = 0;
        lookup.reset();
    }

private:
    std::size_t find(Cell const& name) {
        if (far().indices() <= NameLookup::few) {
            return far().findIndex(name);
        }
        if (!lookup) {
            lookup = std::make_unique<NameLookup>(far());
        }
        return lookup->find(name);
    }
};

/// Compares two tables. Differences become columns of three cells each; without a table for them it only
/// finds out whether there is one.
class Comparison {
public:
    Comparison(TableImplementation* columns, bool flag) : columns_(columns), flag_(flag) {}

    /// True when the tables differ.
    bool differ(TableImplementation const& left, TableImplementation const& right) {
        auto const advance = [this](Descent<Pair>& descent) { return nextNested(descent); };
        auto const finish = [this](Descent<Pair>& descent, Pair const& done) {
            Pair& pair = descent.back();
            pair.differs |= done.differs;
            ++pair.item;
            if (done.repeats && !done.differs) {
                equal_.insert(done.key());
            }
        };
        return walkNested(Pair{&left, &right}, advance, finish).differs;
    }

private:
    /// True when one difference is all that is asked for.
    bool complete(Pair const& pair) const { return pair.differs && columns_ == nullptr; }

    /// Goes on to the next two nested tables at one position that are not known to be equal.
    std::optional<Pair> nextNested(Descent<Pair>& descent) {
        Pair& pair = descent.back();
        for (;; pair.turn()) {
            for (; pair.i < pair.near().indices() && !complete(pair); pair.nextIndex()) {
                if (!pair.paired) {
                    pair.pairIndex();
                }
                if (std::optional<Pair> nested = compareShared(descent)) {
                    return nested;
                }
                listMissing(descent);
            }
            if (pair.reverse || pair.covered() || complete(pair)) {
                return std::nullopt;
            }
        }
    }

    std::optional<Pair> compareShared(Descent<Pair>& descent) {
        Pair& pair = descent.back();
        std::size_t const end = pair.reverse ? 0 : std::min(pair.leftItems, pair.shared);
        if (pair.item >= end) {
            return std::nullopt;
        }
        ColumnView const lefts = pair.left->view(pair.i, pair.leftItems);
        ColumnView const rights = pair.right->view(pair.k, pair.rightItems);
        for (; !complete(pair); ++pair.item) {
            pair.item = firstOther(lefts, rights, pair.item, end);
            if (pair.item == end) {
                break;
            }
            Cell const& left = lefts[pair.item];
            Cell const& right = rights[pair.item];
            if (left.isA() != Cell::TableCell || right.isA() != Cell::TableCell) {
                if (!equalCells(left, right, flag_)) {
                    add(descent, left, right);
                }
            } else if (!equalLeaves(nestedBody(left), nestedBody(right), flag_)) {
                Pair nested{&nestedBody(left), &nestedBody(right), isSharedTable(left)};
                if (!equal_.contains(nested.key())) {
                    return nested;
                }
            }
        }
        return std::nullopt;
    }

    /// The first item from `item` on at which two columns hold a table or not the same.
    static std::size_t firstOther(ColumnView const& lefts, ColumnView const& rights, std::size_t item,
                                  std::size_t end) {
        while (item < end && lefts[item].isA() != Cell::TableCell &&
               sameBits(lefts[item], rights[item])) {
            ++item;
        }
        return item;
    }

    void listMissing(Descent<Pair>& descent) {
        Pair& pair = descent.back();
        std::size_t const end = pair.reverse ? pair.rightItems : pair.leftItems;
        for (; pair.item < end && !complete(pair); ++pair.item) {
            Cell const& cell = pair.near().get(pair.i, pair.item);
            if (!cell.empty()) {
                Cell const missing(Str("missing"));
                add(descent, pair.reverse ? missing : cell, pair.reverse ? cell : missing);
            }
        }
    }

    void add(Descent<Pair>& descent, Cell const& left, Cell const& right) {
        descent.back().differs = true;
        if (columns_ != nullptr) {
            columns_->at(0, Table::npos) = Cell(Str(place(descent)));
            columns_->at(1, Table::npos) = left;
            columns_->at(2, Table::npos) = right;
        }
    }

    /// The text that locates the item that was reached; only a named index carries the place of the
    /// outer item.
    static std::string place(Descent<Pair> const& descent) {
        std::size_t first = descent.size() - 1;
        while (first > 0 && !descent[first].name().empty()) {
            --first;
        }
        std::string place;
        for (std::size_t depth = first; depth < descent.size(); ++depth) {
            Str const name = descent[depth].name();
            if (!name.empty()) {
                place += '/';
                place.append(name.data(), name.size());
            }
            place += '[' + std::to_string(descent[depth].item) + ']';
        }
        return place;
    }

    TableImplementation* columns_;
    bool flag_;
    std::set<std::pair<TableImplementation const*, TableImplementation const*>>
        equal_; // of the pairs that may be met again, since a table can be reached along 2^depth ways
};

} // namespace

Status Walks::compare(TableImplementation const& left, TableImplementation const& right,
                      Ptr<Table>& result, bool flag) {
    Str const name = left.name() + " and " + right.name();
    Ptr<Table> const made = makePtr<Table>(name);
    result = made;
    TableImplementation& columns = madeBody(made);
    for (char const* title : {"Xpath", "Left", "Right"}) {
        columns.addIndex(title);
    }
    if (!Comparison(&columns, flag).differ(left, right)) {
        result = makePtr<Table>(name);
    }
    return Status();
}

bool Walks::match(TableImplementation const& left, TableImplementation const& right) {
    return !Comparison(nullptr, false).differ(left, right);
}

} // namespace QX
