#include "table/rows/keyindex.h"

namespace QX {

/// Files all keys anew under a fresh hash, and when that was done before or fails, in a tree.
void KeyIndex::refile() {
    hash_ = MatchHash::fresh();
    index_ = RowIndex(keys_.size(), isRefiled_ ? RowIndex::Kind::Tree : RowIndex::Kind::HashTable);
    isRefiled_ = true;
    for (std::size_t k = 0; k < keys_.size() && !index_.full(); ++k) {
        keys_[k].rehash(hash_);
        index_.insert(KeyAmong{keys_[k].hash, keys_[k], keys_}, k);
    }
    if (index_.full()) {
        refile();
    }
}

} // namespace QX
