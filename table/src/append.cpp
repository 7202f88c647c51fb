#include "cell/displaytext.h"
#include "table/src/namelookup.h"
#include "table/src/rowset.h"
#include "table/src/tableimpl.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace QX {

Status TableImplementation::append(TableImplementation const& operand, Ptr<Table>& result,
                                   bool addIndices, bool distinct) const {
    requireOther(result);
    Ptr<Table> const table = makePtr<Table>(operand.name_ + " and " + name_);
    result = table;
    TableImplementation& appended = made(table);
    copyRectangle(appended);
    std::size_t const base =
        std::max<std::size_t>(appended.items(), 1); // where the operand's row 1 goes
    std::size_t const width = operand.items();
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
        appended.reach(target, base + width - 2);
        Index& index = appended.indices_[target];
        for (std::size_t j = 1; j < width; ++j) {
            index[base + j - 1] = operand.get(k, j);
        }
    }
    if (distinct) {
        appended.keepRows(appended.distinctTexts());
    }
    return Status();
}

Rows TableImplementation::distinctTexts() const {
    std::size_t const height = items();
    std::string keys; // those of all rows kept, one behind the other
    std::vector<std::size_t> begins(height);
    std::vector<std::size_t> ends(height);
    auto const key = [&](std::size_t row) {
        return std::string_view(keys).substr(begins[row], ends[row] - begins[row]);
    };
    RowSet kept(height);
    Rows rows;
    for (std::size_t j = 0; j < height; ++j) {
        begins[j] = keys.size();
        for (std::size_t i = 0; i < indices(); ++i) {
            keys += ':';
            appendDisplayText(keys, get(i, j));
        }
        ends[j] = keys.size();
        std::size_t const hash = std::hash<std::string_view>()(key(j));
        if (!kept.insert(j, hash, [&](std::size_t earlier) { return key(earlier) == key(j); })) {
            keys.resize(begins[j]);
        } else if (j > 0) {
            rows.push_back(j);
        }
    }
    return rows;
}

} // namespace QX
