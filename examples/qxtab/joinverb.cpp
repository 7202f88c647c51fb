#include "failure.h"
#include "keys.h"
#include "list.h"
#include "verbs.h"

#include <algorithm>
#include <unordered_set>

namespace qxtab {

namespace {

using QX::Join;

struct JoinWord {
    char const* word;
    Join kind;
};

JoinWord const joinWords[] = {{"inner", Join::Inner},
                              {"left", Join::Left},
                              {"full", Join::Full},
                              {"semi", Join::Semi},
                              {"anti", Join::Anti}};

Join readKind(std::string const& text) {
    for (JoinWord const& each : joinWords) {
        if (text == each.word) {
            return each.kind;
        }
    }
    throw Misuse("--how: '" + text + "' is not a way to join: inner, left, full, semi or anti");
}

struct JoinKeys {
    std::vector<std::string> left;
    std::vector<std::string> right;
};

JoinKeys readKeys(std::string const& list) {
    JoinKeys keys;
    for (ListEntry const& entry : readList(list, ListValues::May)) {
        keys.left.push_back(entry.name);
        keys.right.push_back(entry.value.value_or(entry.name));
    }
    return keys;
}

struct Sides {
    Data const& left;
    Positions leftKeys;
    Data const& right;
    Positions rightKeys;
};

/// Pairs of rows; Table::npos where a side has none.
struct Pairs {
    Positions left;
    Positions right;
};

Pairs pairsOf(QX::RowMatches const& found, Join kind) {
    Pairs pairs;
    std::vector<bool> matched(found.next.size());
    for (std::size_t i = 1; i < found.first.size(); ++i) {
        if (found.first[i] == QX::Table::npos && kind != Join::Inner) {
            pairs.left.push_back(i);
            pairs.right.push_back(QX::Table::npos);
        }
        for (std::size_t j = found.first[i]; j != QX::Table::npos; j = found.next[j]) {
            pairs.left.push_back(i);
            pairs.right.push_back(j);
            matched[j] = true;
        }
    }
    for (std::size_t j = 1; kind == Join::Full && j < matched.size(); ++j) {
        if (!matched[j]) {
            pairs.left.push_back(QX::Table::npos);
            pairs.right.push_back(j);
        }
    }
    return pairs;
}

// A key has the right side's field where there is no left row.
void addKey(QX::Table& made, Sides const& sides, std::size_t k, Pairs const& pairs) {
    std::vector<QX::Cell> cells{sides.left.cell(sides.leftKeys[k], 0)};
    cells.reserve(pairs.left.size() + 1);
    for (std::size_t n = 0; n < pairs.left.size(); ++n) {
        bool const right = pairs.left[n] == QX::Table::npos;
        cells.push_back(right ? sides.right.cell(sides.rightKeys[k], pairs.right[n])
                              : sides.left.cell(sides.leftKeys[k], pairs.left[n]));
    }
    QX::addIndex(made, std::move(cells));
}

std::string freeName(std::unordered_set<std::string>& names, std::string const& name,
                     std::string const& side) {
    std::string unique = name;
    while (!names.insert(unique).second) {
        unique = side + "." + unique;
    }
    return unique;
}

Data joinedPairs(Sides const& sides, Pairs const& pairs) {
    QX::Ptr<QX::Table> const made(new QX::Table(sides.left.table->name()));
    std::vector<ColumnType> types = sides.left.types;
    std::unordered_set<std::string> names;
    for (std::size_t i = 0; i < sides.left.columns(); ++i) {
        auto const key = std::find(sides.leftKeys.begin(), sides.leftKeys.end(), i);
        names.insert(sides.left.name(i));
        if (key == sides.leftKeys.end()) {
            QX::addIndex(*made, sides.left.cell(i, 0), *sides.left.table, i, pairs.left);
        } else {
            addKey(*made, sides, static_cast<std::size_t>(key - sides.leftKeys.begin()), pairs);
        }
    }
    for (std::size_t i = 0; i < sides.right.columns(); ++i) {
        if (std::find(sides.rightKeys.begin(), sides.rightKeys.end(), i) == sides.rightKeys.end()) {
            std::string const name = freeName(names, sides.right.name(i), sides.right.title);
            QX::addIndex(*made, nameCell(name), *sides.right.table, i, pairs.right);
            types.push_back(sides.right.types[i]);
        }
    }
    return derived(sides.left, made, types);
}

Data joined(Data const& left, Data const& right, JoinKeys const& names, Join kind) {
    Sides const sides{left, columnsOf(left, names.left), right, columnsOf(right, names.right)};
    KeyPair const keys = keysOf(left, sides.leftKeys, right, sides.rightKeys);
    QX::RowMatches const found =
        QX::matchRows(*keys.left.table, keys.left.columns, *keys.right.table, keys.right.columns);
    if (kind != Join::Semi && kind != Join::Anti) {
        return joinedPairs(sides, pairsOf(found, kind));
    }
    Positions rows = allRows(left);
    std::erase_if(rows, [&](std::size_t row) {
        return (found.first[row] == QX::Table::npos) == (kind == Join::Semi);
    });
    return pickRows(left, rows);
}

Action prepareJoin(Arguments const& arguments) {
    JoinKeys const keys = readKeys(arguments.text("on"));
    Join const kind = readKind(arguments.text("how", "inner"));
    return [keys, kind](Data const& data, std::vector<Data> const& others) -> Outcome {
        return joined(data, others.front(), keys, kind);
    };
}

} // namespace

Verb const joinVerb = {
    "join",
    "Put rows of two files side by side where columns are equal",
    {{{"on", "LIST", "The columns, with the name in the second file where that differs: zip=code", 0,
       true},
      {"how", "KIND",
       "inner (rows that match), left (also others of the first file), full (also of the second), semi "
       "or "
       "anti (rows of the first file that match, or don't)",
       0, false, false, "inner left full semi anti"}},
     {},
     false,
     1,
     1},
    "Rows come in the order of the first file, for each those of the second in their order. A column "
    "whose\n"
    "name is taken is called FILE.NAME. Keys are equal by value where both columns are of numbers,\n"
    "otherwise byte by byte; empty keys equal empty keys.",
    "qxtab join sales.csv zips.csv --on zip=code --how left",
    prepareJoin,
};

} // namespace qxtab
