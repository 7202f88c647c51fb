#include "aggregate.h"
#include "failure.h"
#include "keys.h"
#include "list.h"
#include "verbs.h"

namespace qxtab {

namespace {

void addCounts(QX::Table& table, RowGroups const& groups, std::string const& name) {
    std::vector<double> counts(groups.firsts.size());
    for (std::size_t j = 1; j < groups.of.size(); ++j) {
        counts[groups.of[j]] += 1;
    }
    addColumn(table, name, {counts.begin(), counts.end()});
}

Action prepareUniq(Arguments const& arguments) {
    std::vector<std::string> const by = arguments.names("by");
    bool const count = arguments.has("count");
    return [by, count](Data const& data, std::vector<Data> const&) -> Outcome {
        RowGroups const groups = groupsOf(data, by.empty() ? allColumns(data) : columnsOf(data, by));
        Data unique = pickRows(data, groups.firsts);
        if (!count) {
            return unique;
        }
        QX::Ptr<QX::Table> const counted(new QX::Table(*unique.table)); // shares what is new anyway
        addCounts(*counted, groups, "count");
        unique.types.push_back(ColumnType::Number);
        return derived(data, counted, unique.types);
    };
}

struct Wanted {
    Aggregate const* aggregate;
    std::vector<ListEntry> columns;
};

std::vector<Wanted> readWanted(Arguments const& arguments) {
    std::vector<Wanted> wanted;
    for (Aggregate const& each : aggregates()) {
        if (arguments.has(each.name)) {
            wanted.push_back({&each, readList(arguments.text(each.name), ListValues::May)});
        }
    }
    return wanted;
}

Data grouped(Data const& data, std::vector<std::string> const& by, std::vector<Wanted> const& wanted,
             bool count) {
    Positions const keys = columnsOf(data, by);
    RowGroups const groups = groupsOf(data, keys);
    QX::Ptr<QX::Table> const made(new QX::Table(data.table->name()));
    std::vector<ColumnType> types;
    for (std::size_t const key : keys) {
        QX::addIndex(*made, data.cell(key, 0), *data.table, key, groups.firsts);
        types.push_back(data.types[key]);
    }
    if (count) {
        addCounts(*made, groups, "count");
        types.push_back(ColumnType::Number);
    }
    for (Wanted const& each : wanted) {
        for (ListEntry const& entry : each.columns) {
            std::size_t const column = columnOf(data, entry.name);
            std::string const name = entry.value.value_or(entry.name + "_" + each.aggregate->name);
            addColumn(*made, name, each.aggregate->compute(data, column, groups));
            types.push_back(each.aggregate->keepsType ? data.types[column] : ColumnType::Number);
        }
    }
    return derived(data, made, types);
}

Action prepareGroup(Arguments const& arguments) {
    std::vector<std::string> const by = arguments.names("by");
    std::vector<Wanted> const wanted = readWanted(arguments);
    bool const count = arguments.has("count") || wanted.empty();
    return [by, wanted, count](Data const& data, std::vector<Data> const&) -> Outcome {
        return grouped(data, by, wanted, count);
    };
}

std::vector<Option> groupOptions() {
    std::vector<Option> options = {{"by", "LIST", "The columns whose values make a group", 0, true},
                                   {"count", nullptr, "The number of rows", 'c'}};
    for (Aggregate const& each : aggregates()) {
        options.push_back({each.name, "LIST", each.help});
    }
    return options;
}

} // namespace

Verb const uniqVerb = {
    "uniq",
    "Drop rows that repeat an earlier one",
    {{{"by", "LIST", "Compare these columns only"},
      {"count", nullptr, "Add a column count: how many rows were equal", 'c'}},
     {}},
    "Columns of numbers are equal by value (1.50 and 1.5), others byte by byte.",
    "qxtab uniq --by kind --count prices.csv",
    prepareUniq,
};

Verb const groupVerb = {
    "group",
    "Make one row of the rows with equal values, with what is computed of them",
    {groupOptions(), {}},
    "Groups come in the order of their first rows. What is computed is named COLUMN_WHAT unless "
    "another\n"
    "name follows: --sum price=total. Empty fields don't count; fields that are no numbers are left "
    "out\n"
    "of sums and means, and told.",
    "qxtab group --by kind --count --mean price prices.csv",
    prepareGroup,
};

} // namespace qxtab
