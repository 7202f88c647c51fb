#include "failure.h"
#include "keys.h"
#include "list.h"
#include "verbs.h"

#include <algorithm>

namespace qxtab {

namespace {

struct SortKeys {
    std::vector<std::string> names;
    std::vector<bool> descending;
};

bool isDescending(std::string const& direction) {
    bool const descending = direction == "descending" || direction == "desc";
    if (!descending && direction != "ascending" && direction != "asc") {
        throw Misuse("--by: '" + direction + "' is not a direction: ascending or descending");
    }
    return descending;
}

SortKeys readKeys(std::string const& list, bool descending) {
    SortKeys keys;
    for (ListEntry const& entry : readList(list, ListValues::May)) {
        keys.names.push_back(entry.name);
        keys.descending.push_back(descending != (entry.value && isDescending(*entry.value)));
    }
    return keys;
}

Positions orderedRows(Data const& data, SortKeys const& by) {
    Keys const keys = keysOf(data, columnsOf(data, by.names));
    std::vector<QX::RowKey> order;
    for (std::size_t k = 0; k < keys.columns.size(); ++k) {
        order.push_back({keys.columns[k], by.descending[k]});
    }
    return QX::orderRows(*keys.table, order);
}

Action prepareSort(Arguments const& arguments) {
    SortKeys const keys = readKeys(arguments.text("by"), arguments.has("descending"));
    return [keys](Data const& data, std::vector<Data> const&) -> Outcome {
        return pickRows(data, orderedRows(data, keys));
    };
}

// The first rows of each group that have a value there.
Positions firstOfEach(Data const& data, Positions const& ordered, Positions const& groupColumns,
                      std::size_t by, std::size_t count) {
    Positions const of =
        groupColumns.empty() ? Positions(data.rows() + 1) : groupsOf(data, groupColumns).of;
    std::vector<std::size_t> taken(data.rows() + 1);
    Positions rows;
    for (std::size_t const row : ordered) {
        if (!data.cell(by, row).empty() && taken[of[row]] < count) {
            ++taken[of[row]];
            rows.push_back(row);
        }
    }
    return rows;
}

Action prepareTop(Arguments const& arguments) {
    std::size_t const few = 10;
    std::size_t const count = arguments.count("rows").value_or(few);
    std::string const by = readNames(arguments.text("by")).front();
    std::vector<std::string> const per = arguments.names("per");
    bool const least = arguments.has("least");
    return [=](Data const& data, std::vector<Data> const&) -> Outcome {
        Positions const ordered = orderedRows(data, {{by}, {!least}});
        return pickRows(data,
                        firstOfEach(data, ordered, columnsOf(data, per), columnOf(data, by), count));
    };
}

} // namespace

Verb const sortVerb = {
    "sort",
    "List the rows in the order of one or more columns",
    {{{"by", "LIST", "The columns, the most significant first: a,b=descending", 0, true},
      {"descending", nullptr, "From the largest value to the smallest", 'r'}},
     {}},
    "Columns of numbers go by value, others byte by byte; empty fields come before all others. Rows "
    "that\n"
    "are equal keep their order.",
    "qxtab sort --by kind,price=descending prices.csv",
    prepareSort,
};

Verb const topVerb = {
    "top",
    "Keep the rows with the largest values",
    {{{"by", "NAME", "The column of the values", 0, true},
      {"rows", "N", "How many rows (10 when not given)", 'n'},
      {"per", "LIST", "So many for each value of these columns"},
      {"least", nullptr, "The smallest instead"}},
     {}},
    "Rows without a value there don't count.",
    "qxtab top -n 3 --by price --per kind prices.csv",
    prepareTop,
};

} // namespace qxtab
