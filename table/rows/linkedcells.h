#pragma once

#include "table/model/columnview.h"
#include "table/rows/keyindex.h"

#include <cstddef>
#include <vector>

namespace QX {

/// Finds rows that equal earlier ones in columns in which a cell may equal cells of other content, and
/// they others, as 1 ulp up and down or a date and all numbers of its day do.
///
/// A trie with a level for each column, whose edges are the keys under which cells are filed (see
/// forEachKeyOf): a row is looked up along all edges by which its cells can be found. Of many such columns
/// only some get a level, and rows that agree in those are compared one by one.
class LinkedCells {
public:
    /// `dated` tells for each of the columns whether it holds dates beside numbers.
    LinkedCells(std::vector<ColumnView> const& columns, std::vector<bool> const& dated,
                MatchHash const& hash, RowIndex::Kind kind);

    /// True when an edge found no place.
    bool full() const { return index_.full(); }

    /// True when a row that was added below `root` equals `row` in every column.
    bool has(std::size_t root, std::size_t row) const { return has(0, root, row); }
    /// Adds a row. A root is a number below the number of rows.
    void add(std::size_t root, std::size_t row) { add(0, root, row); }

private:
    /// The keys that occur in one column, by numbers.
    struct Level {
        ColumnView column;
        DateKeys dates;
        KeyIndex keys;
    };
    struct Edge {
        std::size_t node;
        std::size_t key;
        std::size_t lastLeaf; // at the lowest level, the last one added below it
    };
    struct Leaf {
        std::size_t row;
        std::size_t former; // the one added before below the same edge
    };
    struct EdgeKey {
        bool equals(std::size_t k) const { return edges[k].node == node && edges[k].key == key; }
        int compare(std::size_t k) const {
            Edge const& other = edges[k];
            return node != other.node ? (node < other.node ? -1 : 1)
                                      : (key < other.key ? -1 : static_cast<int>(key != other.key));
        }

        std::uint64_t hash;
        std::vector<Edge> const& edges;
        std::size_t node;
        std::size_t key;
    };

    EdgeKey edgeKey(std::size_t node, std::size_t key) const {
        return {hash_.ofWord(node, key), edges_, node, key};
    }
    bool has(std::size_t level, std::size_t node, std::size_t row) const;
    bool hasBelow(Edge const& edge, std::size_t row) const;
    void add(std::size_t level, std::size_t node, std::size_t row);

    MatchHash hash_;
    std::size_t rows_;
    std::vector<Level> levels_;
    std::vector<ColumnView> rest_; // columns without a level
    RowIndex index_;               // of the edges
    std::vector<Edge> edges_;      // edge k leads to node rows_ + k
    std::vector<Leaf> leaves_;
};

} // namespace QX
