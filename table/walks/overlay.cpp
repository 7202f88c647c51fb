#include "base/makeptr.h"
#include "table/model/bodies.h"
#include "table/model/namelookup.h"
#include "table/walks/walknested.h"
#include "table/walks/walks.h"

#include <memory>
#include <set>
#include <unordered_map>

namespace QX {

namespace {

/// A table on its way onto another, its indices and items the last first.
struct Layer {
    TableImplementation const* lower;
    TableImplementation const* operand;
    void const* lowerKey; // stands for what the lower table contributes to the descent
    Ptr<Table> laid;
    std::size_t width;
    std::size_t k = operand->indices();   // an index of the operand
    std::size_t j = 0;                    // the items that it has left
    std::size_t target = 0;               // the index that it goes to
    std::unique_ptr<NameLookup> lookup{}; // of the lower table's indices

    auto key() const { return std::pair(lowerKey, operand); }
    Roots<2> roots() const { return {lower, operand}; }

    /// Goes on to the next index of the operand that is to be laid; false when there is none.
    bool nextIndex(bool matchedOnly) {
        while (k-- > 0) {
            std::size_t const match = find(operand->get(k, 0));
            if (match != Table::npos || !matchedOnly) {
                target = match == Table::npos ? laid->indices() : match;
                j = width;
                return true;
            }
        }
        return false;
    }

private:
    std::size_t find(Cell const& name) {
        if (lower->indices() <= NameLookup::few) {
            return lower->findIndex(name);
        }
        if (!lookup) {
            lookup = std::make_unique<NameLookup>(*lower);
        }
        return lookup->find(name);
    }
};

/// Knows the tables of a result by what they were made of.
///
/// Two operand indices of one name are laid over each other, the second over a table that the first has
/// just made. Such tables are new at every level of an endless descent; those made of the same tables
/// behave alike.
class Origins {
public:
    /// True once a table that was just made lies beneath; until then none needs to be known.
    bool needed = false;

    void const* of(TableImplementation const* table) const {
        auto const known = keys_.find(table);
        return known == keys_.end() ? table : known->second;
    }

    void note(TableImplementation const* made, Layer const& layer) {
        keys_[made] = &*pairs_.insert(layer.key()).first;
    }

private:
    std::unordered_map<TableImplementation const*, void const*> keys_;
    std::set<std::pair<void const*, TableImplementation const*>> pairs_;
};

/// Lays tables over tables.
class Overlay {
public:
    explicit Overlay(Walks::OverlayFlags const& flags) : flags_(flags) {}

    Layer begin(TableImplementation const* lower, TableImplementation const& operand,
                Ptr<Table> const& laid) {
        // Where neither names nor items limit it, the operand alone decides how far down the walk goes.
        bool const limited = flags_.matchedOnly || !flags_.operandItems;
        std::size_t const width = flags_.operandItems ? operand.items() : lower->items();
        return {lower, &operand, limited ? origins_.of(lower) : nullptr, laid, width};
    }

    /// Lays cells up to the next nested table of the operand and begins with that.
    std::optional<Layer> advance(Layer& layer) {
        TableImplementation& laid = madeBody(layer.laid);
        for (;;) {
            for (; layer.j > 0; --layer.j) {
                std::size_t const j = layer.j - 1;
                Cell const& cell = layer.operand->get(layer.k, j);
                if (cell.empty() && !flags_.emptyOverwrites) {
                    continue;
                }
                Cell& place = laid.reach(layer.target, j);
                if (Table const* const nested = nestedIn(cell)) {
                    return beginNested(layer, place, bodyOf(*nested));
                }
                if (!cell.empty() || place.isA() != Cell::TableCell) {
                    place = cell;
                }
            }
            if (!layer.nextIndex(flags_.matchedOnly)) {
                return std::nullopt;
            }
        }
    }

    /// Puts a nested table that has been laid in its place.
    void finish(Layer& layer, Layer const& done) {
        --layer.j;
        TableImplementation& laid = madeBody(layer.laid);
        laid.reach(layer.target, layer.j) = Cell(done.laid);
        if (origins_.needed) {
            origins_.note(&bodyOf(*done.laid), done);
        }
    }

private:
    Layer beginNested(Layer const& layer, Cell const& place, TableImplementation const& operand) {
        Table const* const beneath = nestedIn(place);
        if (beneath != nestedIn(layer.lower->get(layer.target, layer.j - 1))) {
            origins_.needed = true;
        }
        TableImplementation const& lower = beneath == nullptr ? emptyBody() : bodyOf(*beneath);
        Ptr<Table> const laid = makePtr<Table>(operand.name());
        madeBody(laid).addRectangle(lower);
        return begin(&lower, operand, laid);
    }

    Walks::OverlayFlags const& flags_;
    Origins origins_;
};

} // namespace

Status Walks::overlay(TableImplementation const& table, TableImplementation const* operand,
                      Ptr<Table>& result, OverlayFlags const& flags) {
    requireOther(table, result);
    Ptr<Table> const made = makePtr<Table>(operand == nullptr ? table.name() : operand->name());
    result = made;
    madeBody(made).addRectangle(table);
    if (operand != nullptr) {
        Overlay overlay(flags);
        walkNested(
            overlay.begin(&table, *operand, made),
            [&](Descent<Layer>& descent) { return overlay.advance(descent.back()); },
            [&](Descent<Layer>& descent, Layer const& done) { overlay.finish(descent.back(), done); });
    }
    return Status();
}

} // namespace QX
