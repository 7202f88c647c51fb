#include "table/model/nameindex.h"

namespace QX {

int NameIndex::NameKey::compare(std::size_t k) const {
    Filed const& other = filed[k];
    if (key.kind != other.kind) {
        return key.kind < other.kind ? -1 : 1;
    }
    if (key.kind == MatchKey::Kind::Text) {
        return key.text.compare(textOf(other.text));
    }
    return key.word != other.word ? (key.word < other.word ? -1 : 1) : 0;
}

void NameIndex::add(std::size_t i, Cell const& name) {
    forEachKeyOf(hash_, name, {}, [&](MatchKey const& key) {
        std::size_t const k = placeOf(key, name);
        std::size_t& lowest = filed_[k].lowest;
        if (lowest != none) {
            others_.emplace(k, std::max(i, lowest));
        }
        lowest = std::min(i, lowest);
    });
}

void NameIndex::remove(std::size_t i, Cell const& name) {
    forEachKeyOf(hash_, name, {}, [&](MatchKey const& key) {
        std::size_t const k = index_.find(NameKey{key.hash, key, filed_});
        if (k == none) {
            return;
        }
        if (filed_[k].lowest != i) {
            others_.erase({k, i});
            return;
        }
        auto const next = others_.lower_bound({k, 0});
        bool const more = next != others_.end() && next->first == k;
        filed_[k].lowest = more ? next->second : none;
        if (more) {
            others_.erase(next);
        }
    });
}

std::size_t NameIndex::placeOf(MatchKey const& key, Cell const& name) {
    std::size_t const next = filed_.size();
    std::size_t k = index_.insert(NameKey{key.hash, key, filed_}, next);
    if (k == next || k == none) {
        bool const isText = key.kind == MatchKey::Kind::Text;
        filed_.push_back({key.kind, key.word, isText ? name : Cell(), none});
    }
    if (k == none) {
        refile();
        k = next;
    }
    return k;
}

/// Files all keys anew under a fresh hash, and when that was done before or fails, in a tree.
void NameIndex::refile() {
    hash_ = MatchHash::fresh();
    index_ = RowIndex(filed_.size(), isRefiled_ ? RowIndex::Kind::Tree : RowIndex::Kind::HashTable);
    isRefiled_ = true;
    for (std::size_t k = 0; k < filed_.size() && !index_.full(); ++k) {
        Filed const& filed = filed_[k];
        MatchKey const key = filed.kind == MatchKey::Kind::Text
                                 ? MatchKey(hash_, filed.text)
                                 : MatchKey(hash_, filed.kind, filed.word);
        index_.insert(NameKey{key.hash, key, filed_}, k);
    }
    if (index_.full()) {
        refile();
    }
}

} // namespace QX
