#include "table/src/descent.h"
#include "table/src/tableimpl.h"

#include <utility>

namespace QX {

namespace {

/// A table on its way into a copy: first its data, then its attributes.
struct Cloning {
    TableImplementation const* data;
    TableImplementation const* attributes; // null when there are none or nothing has used them
    Ptr<Table> copy;
    bool inAttributes = false;
    std::size_t width = data->items(); // of the one that is being copied

    TableImplementation const& source() const { return inAttributes ? *attributes : *data; }
    auto key() const { return std::pair(data, attributes); }
};

} // namespace

Table const* TableImplementation::cloneCells(TableImplementation& copy, std::size_t width) const {
    if (width == 0) {
        return nullptr;
    }
    Indices& copies = copy.indices_;
    copies.reserve(indices_.size());
    for (std::size_t i = copies.empty() ? 0 : copies.size() - 1; i < indices_.size(); ++i) {
        if (i == copies.size()) {
            copies.push_back(Index()).reserve(width);
        }
        Index const& index = indices_[i];
        Index& cells = copies[i];
        for (std::size_t j = cells.size(); j < index.size(); ++j) {
            if (Table const* const nested = nestedIn(index[j])) {
                return nested;
            }
            cells.push_back(index[j]);
        }
        cells.resize(width);
    }
    return nullptr;
}

Ptr<Table> TableImplementation::clone(Table const& table) {
    auto const begin = [](Table const& source) {
        TableImplementation const& data = of(source);
        return Cloning{&data, source.attributes_ ? source.attributes_.get() : nullptr,
                       makePtr<Table>(data.name_)};
    };
    auto const copyOf = [](Cloning const& walk) -> TableImplementation& {
        return walk.inAttributes ? *walk.copy->attributes_ : *walk.copy->data_;
    };
    auto const advance = [&](Descent<Cloning>& descent) -> std::optional<Cloning> {
        Cloning& walk = descent.back();
        for (;;) {
            if (Table const* const nested = walk.source().cloneCells(copyOf(walk), walk.width)) {
                return begin(*nested);
            }
            if (walk.inAttributes || walk.attributes == nullptr) {
                return std::nullopt;
            }
            walk.inAttributes = true;
            walk.width = walk.attributes->items();
            walk.copy->attributes_ = makeBody(walk.attributes->name_);
        }
    };
    auto const finish = [&](Descent<Cloning>& descent, Cloning const& done) {
        copyOf(descent.back()).indices_.back().push_back(Cell(done.copy));
    };
    return descend(begin(table), advance, finish).copy;
}

} // namespace QX
