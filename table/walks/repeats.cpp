#include "table/walks/repeats.h"

#include "table/model/bodies.h"
#include "table/model/raise.h"

#include <atomic>
#include <limits>
#include <unordered_set>
#include <vector>

namespace QX {

namespace {

std::atomic<std::size_t> limit{std::size_t{1} << 22U};

} // namespace

std::size_t Table::repeatLimit() noexcept {
    return limit.load(std::memory_order_relaxed);
}

void Table::setRepeatLimit(std::size_t count) noexcept {
    limit.store(count, std::memory_order_relaxed);
}

void Repeats::allow(std::size_t tableCells) {
    if (!counted_ && tableCells < std::numeric_limits<std::size_t>::max() - allowed_) {
        counted_ = true;
        allowed_ += tableCells;
    }
    if (met_ > allowed_) {
        raise("Nested tables repeat too often");
    }
}

std::size_t countTableCells(std::span<TableImplementation const* const> roots) {
    std::unordered_set<TableImplementation const*> met;
    std::vector<TableImplementation const*> waiting;
    auto const meet = [&](TableImplementation const* table) {
        if (table != nullptr && met.insert(table).second) {
            waiting.push_back(table);
        }
    };
    for (TableImplementation const* const root : roots) {
        meet(root);
    }
    std::size_t cells = 0;
    while (!waiting.empty()) {
        TableImplementation const& table = *waiting.back();
        waiting.pop_back();
        for (Column const& column : table.columns()) {
            for (Cell const& cell : column) {
                if (Table const* const nested = nestedIn(cell)) {
                    ++cells;
                    meet(TableBodies::data(*nested).get());
                    meet(TableBodies::attributes(*nested).get());
                }
            }
        }
    }
    return cells;
}

} // namespace QX
