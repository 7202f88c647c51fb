#include "failure.h"
#include "journal.h"
#include "keys.h"
#include "verbs.h"

#include <unordered_map>

namespace qxtab {

namespace {

using Places = std::unordered_map<std::string, std::size_t>;

Places placesOf(Data const& data) {
    Places places;
    for (std::size_t i = 0; i < data.columns(); ++i) {
        places.emplace(data.name(i), i);
    }
    return places;
}

/// The columns of all tables put below each other: their names, and where each table has them.
struct Layout {
    std::vector<std::string> names;
    std::vector<Positions> sources; ///< for each column one number for each table, or Table::npos
};

void tellLeftOut(Data const& data, std::size_t columns) {
    if (columns != 0) {
        tell(data.label + ": " + std::to_string(columns) +
             (columns == 1 ? " column that" : " columns that") +
             " the first file lacks left out (--add-columns keeps them)");
    }
}

Layout layoutOf(std::vector<Data const*> const& tables, bool addColumns) {
    Layout layout;
    Places places = placesOf(*tables.front());
    layout.names = namesOf(*tables.front());
    for (std::size_t i = 0; i < layout.names.size(); ++i) {
        layout.sources.emplace_back(tables.size(), QX::Table::npos)[0] = i;
    }
    for (std::size_t t = 1; t < tables.size(); ++t) {
        std::size_t leftOut = 0;
        for (std::size_t i = 0; i < tables[t]->columns(); ++i) {
            std::string const name = tables[t]->name(i);
            if (addColumns && places.emplace(name, layout.names.size()).second) {
                layout.names.push_back(name);
                layout.sources.emplace_back(tables.size(), QX::Table::npos);
            }
            auto const place = places.find(name);
            leftOut += place == places.end() ? 1 : 0;
            if (place != places.end() && layout.sources[place->second][t] == QX::Table::npos) {
                layout.sources[place->second][t] = i;
            }
        }
        tellLeftOut(*tables[t], leftOut);
    }
    return layout;
}

Data appended(std::vector<Data const*> const& tables, bool addColumns) {
    Layout const layout = layoutOf(tables, addColumns);
    QX::Ptr<QX::Table> const made(new QX::Table(tables.front()->table->name()));
    std::vector<std::size_t> rows;
    rows.reserve(tables.size());
    for (Data const* each : tables) {
        rows.push_back(each->rows());
    }
    for (std::size_t i = 0; i < layout.names.size(); ++i) {
        std::vector<QX::Cell> cells{nameCell(layout.names[i])};
        for (std::size_t t = 0; t < tables.size(); ++t) {
            for (std::size_t j = 1; j <= rows[t]; ++j) {
                cells.push_back(tables[t]->cell(layout.sources[i][t], j));
            }
        }
        QX::addIndex(*made, std::move(cells));
    }
    return derived(*tables.front(), made);
}

Action prepareAppend(Arguments const& arguments) {
    bool const addColumns = arguments.has("add-columns");
    bool const distinct = arguments.has("distinct");
    return [=](Data const& data, std::vector<Data> const& others) -> Outcome {
        std::vector<Data const*> tables{&data};
        for (Data const& other : others) {
            tables.push_back(&other);
        }
        Data const all = appended(tables, addColumns);
        return distinct ? pickRows(all, groupsOf(all, allColumns(all)).firsts) : all;
    };
}

Action prepareMerge(Arguments const& arguments) {
    bool const byName = arguments.has("by-name");
    return [byName](Data const& data, std::vector<Data> const& others) -> Outcome {
        QX::Ptr<QX::Table> result;
        require(data.table->merge(others.front().table, result, byName));
        return derived(data, result);
    };
}

Action prepareOverlay(Arguments const& arguments) {
    bool const matchedOnly = arguments.has("matched-only");
    bool const emptyOverwrites = arguments.has("empty-overwrites");
    bool const upperRows = arguments.has("upper-rows");
    return [=](Data const& data, std::vector<Data> const& others) -> Outcome {
        QX::Ptr<QX::Table> result;
        require(
            data.table->overlay(others.front().table, result, matchedOnly, emptyOverwrites, upperRows));
        return derived(data, result);
    };
}

} // namespace

Verb const appendVerb = {
    "append",
    "Add the rows of further files below, column by column of the same name",
    {{{"add-columns", nullptr, "Add columns that the first file lacks"},
      {"distinct", nullptr, "Drop rows that repeat an earlier one"}},
     {},
     false,
     1,
     Syntax::anyNumber},
    "A column that a file lacks is empty in its rows. One that the first file lacks is left out and "
    "told,\n"
    "unless --add-columns. Of columns of one name the first counts.",
    "qxtab append --add-columns january.csv february.csv march.csv",
    prepareAppend,
};

Verb const mergeVerb = {
    "merge",
    "Put the columns of the second file behind those of the first",
    {{{"by-name", nullptr, "Put a column over the first column of the same name"}}, {}, false, 1, 1},
    "With --by-name a column replaces as many fields as the second file has rows; fields beyond are "
    "kept.",
    "qxtab merge names.csv prices.csv",
    prepareMerge,
};

Verb const overlayVerb = {
    "overlay",
    "Lay the second file over the first, field over field, by the names of the columns",
    {{{"matched-only", nullptr, "Leave out columns that the first file lacks"},
      {"empty-overwrites", nullptr, "Let empty fields replace what lies beneath"},
      {"upper-rows", nullptr, "Lay as many rows as the second file has, not as the first has"}},
     {},
     false,
     1,
     1},
    "Empty fields leave what lies beneath, unless --empty-overwrites. Columns that the first file lacks "
    "are\n"
    "added at the end, the last one first.",
    "qxtab overlay prices.csv corrections.csv",
    prepareOverlay,
};

} // namespace qxtab
