// What the operations share: their operands, the rectangular copy and the placing of rows.

#include "table/src/raise.h"
#include "table/src/tableimpl.h"

#include <utility>

namespace QX {

TableImplementation const& TableImplementation::of(Table const& table) {
    return table.body();
}

Ptr<TableImplementation> TableImplementation::writable(Table& table) {
    if (!table.data_) {
        table.data_ = makePtr<TableImplementation>(Str());
    }
    return table.data_;
}

TableImplementation const& TableImplementation::required(Ptr<Table const> const& operand,
                                                         char const* complaint) {
    if (!operand) {
        raise(complaint);
    }
    return of(*operand);
}

void TableImplementation::requireOther(Ptr<Table> const& result) const {
    if (result && result->data_.get() == this) {
        raise("Result table cannot be same as 'this' table");
    }
}

void TableImplementation::copyRectangle(TableImplementation& target) const {
    std::size_t const width = items();
    if (width == 0) {
        return;
    }
    target.indices_.reserve(indices());
    for (Index const& index : indices_) {
        target.indices_.push_back(padded(index, width));
    }
}

TableImplementation::Index TableImplementation::padded(Index const& index, std::size_t width) {
    Index copy;
    copy.reserve(width);
    copy.assign(index.begin(), index.end());
    copy.resize(width);
    return copy;
}

Ptr<Table> TableImplementation::pickRows(Str const& name, Rows const& rows) const {
    Ptr<Table> const table = makePtr<Table>(name);
    std::vector<Index>& picked = made(table).indices_;
    picked.reserve(indices());
    for (std::size_t i = 0; i < indices(); ++i) {
        Index& index = picked.emplace_back();
        index.reserve(rows.size() + 1);
        index.push_back(get(i, 0));
        for (std::size_t const row : rows) {
            index.push_back(get(i, row));
        }
    }
    return table;
}

} // namespace QX
