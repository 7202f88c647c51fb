#include "table/src/namelookup.h"
#include "table/src/tableimpl.h"

#include <string>

namespace QX {

namespace {

/// Where a walk stands: an item of an index, inside the item of an outer table that holds this one.
struct Place {
    Place const* outer;
    std::string name; // empty for an index without a readable name
    std::size_t item;

    /// The text that locates the item; only a named index carries the place of the outer item.
    std::string key() const {
        std::string const prefix =
            name.empty() ? "" : (outer == nullptr ? "" : outer->key()) + '/' + name;
        return prefix + '[' + std::to_string(item) + ']';
    }
};

/// Collects differences, one column of three cells each; without a table it only says that there is one.
class Differences {
public:
    explicit Differences(TableImplementation* table) : table_(table) {}

    void add(Place const& place, Cell const& left, Cell const& right) {
        found_ = true;
        if (table_ != nullptr) {
            table_->at(0, Table::npos) = Cell(Str(place.key()));
            table_->at(1, Table::npos) = left;
            table_->at(2, Table::npos) = right;
        }
    }

    bool found() const { return found_; }
    /// True when one difference is all that is asked for.
    bool complete() const { return found_ && table_ == nullptr; }

private:
    TableImplementation* table_;
    bool found_ = false;
};

/// Compares the near table with the far one, position by position.
class Comparison {
public:
    Comparison(Differences& differences, bool flag) : differences_(differences), flag_(flag) {}

    /// Finds the differences at positions that both tables have and, inside nested tables, all; then
    /// those at positions that only one of them has.
    void compare(TableImplementation const& left, TableImplementation const& right, Place const* outer) {
        walk(left, right, outer, true);
        walk(right, left, outer, false);
    }

private:
    void walk(TableImplementation const& near, TableImplementation const& far, Place const* outer,
              bool nearIsLeft) {
        NameLookup lookup(far);
        std::size_t const nearItems = near.items();
        std::size_t const farItems = far.items();
        for (std::size_t i = 0; i < near.indices() && !differences_.complete(); ++i) {
            Str name; // stays empty when the name has no text: then the index is paired by position
            near.get(i, 0).get(name, 0);
            std::size_t const position = i < far.indices() ? i : Table::npos;
            std::size_t const k = name.empty() ? position : lookup.find(Cell(name));
            std::size_t const shared = k == Table::npos ? 0 : farItems;
            Place place{outer, std::string(name.data(), name.size()), nearIsLeft ? 0 : shared};
            for (; place.item < nearItems && !differences_.complete(); ++place.item) {
                Cell const& cell = near.get(i, place.item);
                if (place.item < shared) {
                    compareCells(cell, far.get(k, place.item), place);
                } else if (!cell.empty()) {
                    Cell const missing(Str("missing"));
                    differences_.add(place, nearIsLeft ? cell : missing, nearIsLeft ? missing : cell);
                }
            }
        }
    }

    void compareCells(Cell const& left, Cell const& right, Place const& place) {
        if (left.isA() == Cell::TableCell && right.isA() == Cell::TableCell) {
            compare(TableImplementation::of(*tableOf(left)), TableImplementation::of(*tableOf(right)),
                    &place);
        } else if (!left.compare(right, flag_)) {
            differences_.add(place, left, right);
        }
    }

    Differences& differences_;
    bool flag_;
};

} // namespace

Status TableImplementation::compare(TableImplementation const& right, Ptr<Table>& result,
                                    bool flag) const {
    Str const name = name_ + " and " + right.name_;
    Ptr<Table> const table = makePtr<Table>(name);
    result = table;
    TableImplementation& columns = made(table);
    for (char const* title : {"Xpath", "Left", "Right"}) {
        columns.addIndex(title);
    }
    Differences differences(&columns);
    Comparison(differences, flag).compare(*this, right, nullptr);
    if (!differences.found()) {
        result = makePtr<Table>(name);
    }
    return Status();
}

bool TableImplementation::match(TableImplementation const& right) const {
    Differences differences(nullptr);
    Comparison(differences, false).compare(*this, right, nullptr);
    return !differences.found();
}

} // namespace QX
