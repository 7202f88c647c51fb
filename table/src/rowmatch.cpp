#include "table/src/rowmatch.h"

#include "base/fastpaths.h"
#include "base/strview.h"
#include "cell/cellkeys.h"

#include <cstdint>
#include <unordered_map>

namespace QX {

namespace {

std::string textOf(Cell const& cell) {
    Str text; // stays empty for a cell without text
    cell.get(text, 0);
    return std::string(viewOf(text));
}

} // namespace

Rows rowsOfValues(Column const& column, Column const& values) {
    constexpr std::size_t few = 4; // so many values are compared sooner than looked up
    bool const plain = !fastPaths || values.items() <= few + 1;
    return plain ? rowsByComparing(column, values) : rowsByKeys(column, values);
}

Rows rowsByComparing(Column const& column, Column const& values) {
    Rows rows;
    for (std::size_t c = 1; c < values.items(); ++c) {
        for (std::size_t j = 1; j < column.items(); ++j) {
            if (column[j].compare(values[c], false)) {
                rows.push_back(j);
            }
        }
    }
    return rows;
}

Rows rowsByKeys(Column const& column, Column const& values) {
    std::unordered_map<std::uint64_t, std::vector<std::size_t>> sought; // key: the values it stands for
    for (std::size_t c = 1; c < values.items(); ++c) {
        for (std::uint64_t const key : keysFor(values[c])) {
            sought[key].push_back(c);
        }
    }
    std::vector<Rows> found(values.items());
    for (std::size_t j = 1; j < column.items(); ++j) {
        for (std::uint64_t const key : keysOf(column[j])) {
            auto const candidates = sought.find(key);
            if (candidates == sought.end()) {
                continue;
            }
            for (std::size_t const c : candidates->second) {
                bool const listed = !found[c].empty() && found[c].back() == j; // by a collision of keys
                if (!listed && column[j].compare(values[c], false)) {
                    found[c].push_back(j);
                }
            }
        }
    }
    Rows rows;
    for (Rows const& group : found) {
        rows.insert(rows.end(), group.begin(), group.end());
    }
    return rows;
}

ExcludedTexts::ExcludedTexts(TableImplementation const& conditions, std::size_t k, bool keepEmpty)
    : keepEmpty_(keepEmpty) {
    Column const values = conditions.column(k);
    for (std::size_t c = 1; c < values.items(); ++c) {
        texts_.insert(textOf(values[c]));
    }
}

bool ExcludedTexts::passes(Cell const& cell) const {
    std::string const text = textOf(cell);
    return (keepEmpty_ || !text.empty()) && !texts_.contains(text);
}

} // namespace QX
