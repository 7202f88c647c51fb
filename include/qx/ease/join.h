#pragma once

#include "qx/ease/names.h"
#include "qx/ease/rowverbs.h"
#include "qx/rows.h"
#include "qx/table.h"

#include <cstddef>
#include <string>
#include <vector>

namespace QX {
inline namespace Ease {

/// Which rows joined() makes.
enum class Join {
    Inner, ///< one for each pair of a left and a right row that match
    Left,  ///< these, and the left rows without a match, with empty cells for the right side
    Full,  ///< these, and the right rows without a match, behind all others
    Semi,  ///< the left rows that have a match, once each, without the right side
    Anti   ///< the left rows that have no match, without the right side
};

} // namespace Ease

namespace Detail {

/// Two tables of which rows are joined, and by which indices.
struct JoinSides {
    Table const& left;
    Positions leftKeys;
    Table const& right;
    Positions rightKeys;
};

/// The pairs of rows of a join; Table::npos where a side has none.
struct JoinedRows {
    Positions left;
    Positions right;
};

inline JoinedRows joinedRows(JoinSides const& sides, Join kind) {
    RowMatches const found = matchRows(sides.left, sides.leftKeys, sides.right, sides.rightKeys);
    std::vector<bool> matched(found.next.size());
    JoinedRows rows;
    for (std::size_t i = 1; i < found.first.size(); ++i) {
        if (found.first[i] == Table::npos && kind != Join::Inner) {
            rows.left.push_back(i);
            rows.right.push_back(Table::npos);
        }
        for (std::size_t j = found.first[i]; j != Table::npos; j = found.next[j]) {
            rows.left.push_back(i);
            rows.right.push_back(j);
            matched[j] = true;
        }
    }
    for (std::size_t j = 1; kind == Join::Full && j < matched.size(); ++j) {
        if (!matched[j]) {
            rows.left.push_back(Table::npos);
            rows.right.push_back(j);
        }
    }
    return rows;
}

/// Adds the key indices of the left side, with the right side's cells where there is no left row.
inline void addKeyIndex(Table& made, JoinSides const& sides, std::size_t k, JoinedRows const& rows) {
    std::vector<Cell> cells{sides.left.get(sides.leftKeys[k], 0)};
    cells.reserve(rows.left.size() + 1);
    for (std::size_t n = 0; n < rows.left.size(); ++n) {
        bool const right = rows.left[n] == Table::npos;
        cells.push_back(right ? sides.right.get(sides.rightKeys[k], rows.right[n])
                              : sides.left.get(sides.leftKeys[k], rows.left[n]));
    }
    addIndex(made, std::move(cells));
}

/// The name of an index of the right side in the joined table.
inline Cell rightName(Table const& made, Table const& right, std::size_t index) {
    Str name;
    (void)right.get(index, 0).get(name, 0);
    if (name.empty() || findIndex(made, name) == Table::npos) {
        return right.get(index, 0);
    }
    Str const side = right.name().empty() ? Str("right") : right.name();
    Str const longer = side + Str(".") + name;
    if (findIndex(made, longer) != Table::npos) {
        throw Failure(std::string("Both tables have an index '") + name.get() + "', and there is a '" +
                      longer.get() + "': rename one of them");
    }
    return longer;
}

/// Where an index stands among keys, or Table::npos.
inline std::size_t keyPlace(Positions const& keys, std::size_t index) {
    std::size_t place = 0;
    while (place < keys.size() && keys[place] != index) {
        ++place;
    }
    return place < keys.size() ? place : Table::npos;
}

inline Ptr<Table> joinedPairs(JoinSides const& sides, Join kind) {
    JoinedRows const rows = joinedRows(sides, kind);
    Ptr<Table> made(new Table(sides.left.name() + Str(" and ") + sides.right.name()));
    for (std::size_t i = 0; i < sides.left.indices(); ++i) {
        std::size_t const key = keyPlace(sides.leftKeys, i);
        if (key != Table::npos && kind == Join::Full) {
            addKeyIndex(*made, sides, key, rows);
        } else {
            addIndex(*made, sides.left.get(i, 0), sides.left, i, rows.left);
        }
    }
    for (std::size_t i = 0; i < sides.right.indices(); ++i) {
        if (keyPlace(sides.rightKeys, i) == Table::npos) {
            addIndex(*made, rightName(*made, sides.right, i), sides.right, i, rows.right);
        }
    }
    return made;
}

} // namespace Detail

inline namespace Ease {

/// Joins two tables where rows are equal in some indices, `leftKeys` of the one and as many `rightKeys`
/// of the other: `joined(people, towns, {"town"}, {"name"}, Join::Left)`.
///
///     left           right            joined(left, right, {"key"}, Join::Left)
///     key 1 2 3      key 3 1 1        key 1 1 2 3
///     a   x y z      b   p q r        a   x x y z
///                                     b   q r - p
///
/// The result holds the left indices, then the right ones but the keys, cells shared; one whose name is
/// taken is named "RIGHT.NAME" after the right table ("right" when that has no name). Rows come in the
/// order of the left table, for each the matches in the order of the right one; they match as
/// matchRows() says, so empty keys match empty keys. The result is named "LEFT and RIGHT", after the left
/// table for Join::Semi and Join::Anti.
///
/// Raises Failure as indexOf() does for keys, and when a right index finds its longer name taken, too;
/// Except when there are not as many right as left keys. Cost: linear in the rows and in the cells of the
/// result, which has as many rows as there are pairs.
[[nodiscard]] inline Ptr<Table> joined(TableArgument const& left, TableArgument const& right,
                                       Names const& leftKeys, Names const& rightKeys,
                                       Join kind = Join::Inner) {
    Detail::JoinSides const sides{*left, indicesOf(left, leftKeys), *right, indicesOf(right, rightKeys)};
    if (kind != Join::Semi && kind != Join::Anti) {
        return Detail::joinedPairs(sides, kind);
    }
    RowMatches const found = matchRows(*left, sides.leftKeys, *right, sides.rightKeys);
    return Detail::pickedRows(*left, Detail::rowsWhere(*left, [&](std::size_t i) {
        return (found.first[i] != Table::npos) == (kind == Join::Semi);
    }));
}
/// The same for keys that have the same names in both tables: `joined(a, b, {"key"}, Join::Left)`.
[[nodiscard]] inline Ptr<Table> joined(TableArgument const& left, TableArgument const& right,
                                       Names const& keys, Join kind = Join::Inner) {
    return joined(left, right, keys, keys, kind);
}

} // namespace Ease
} // namespace QX
