// A table that no thread writes, read by several at once: for builds with QX_SHARED_READS, and for a
// sanitizer that watches threads.

#include "operations.h"

#include <set>
#include <thread>

namespace QX {
namespace {

constexpr char const* sharedTable = "A 1 2 2 ?1 nan | B x - a-long-text-that-lies-elsewhere {n C 1 | D "
                                    "{deep E 5 } } !failed | F {n C 1 }";

std::string const calls[] = {
    "merge by name", "merge",
    "fill 2",        "append all distinct",
    "append",        "overlay empties items",
    "select keep",   "select distinct",
    "filter",        "filter keep exclude",
    "sort up",       "sort",
    "compare",       "makeTemplate",
    "transpose",     "operation + under A 1 2 2 | B x",
};

/// Calls every const member of a cell.
std::string readCell(Cell const& cell, Cell const& other) {
    Cell const copy(cell);
    std::string found = printed(copy) + std::to_string(copy.isA());
    Str text;
    double number = 0;
    int whole = 0;
    bool truth = false;
    Status status;
    Date date;
    AnalyticDouble analytic;
    Ptr<Table> table;
    Ptr<Table const> readTable;
    for (Status const& each :
         {copy.get(text, 0), copy.get(number), copy.get(whole), copy.get(truth), copy.get(status),
          copy.get(date), copy.get(analytic), copy.get(table), copy.get(readTable)}) {
        found += outcome(each);
    }
    found += copy.compare(other, true) ? "=" : "/";
    found += copy < other ? "<" : ">";
    return found + printed(copy.operation(other, "+"));
}

/// Calls every const member of a table.
std::string readTable(Table const& table, Operand const& same, Operand const& other) {
    std::string found = shown(table) + string(table.name()) + std::to_string(table.indices());
    Table const copy(table);
    Ptr<Table const> const handle = same;
    for (std::size_t i = 0; i < copy.indices(); ++i) {
        for (std::size_t j = 0; j < copy.items(i); ++j) {
            found += readCell(table.get(i, j), copy.at(i, j));
        }
    }
    found += readCell(table.get("A", 1), table.at("B", 9));
    found += printed(table.atXPath("F/C", Cell())) + brief(*table.clone()) + brief(Table(*handle));
    Ptr<Table> reached = brief("former");
    found += outcome(table.XPath("B/D", reached)) + brief(*reached);
    Cell attribute;
    (void)table.getAttribute("unit", attribute);
    found += printed(attribute) + brief(*table.getAttributes());
    found += table.check() ? "sound" : "loops";
    found += handle->match(other, false) ? "alike" : "different";
    found += printed(Cell(handle));
    double total = 0;
    found += raised([&] { found += outcome(table.unaryOperation("+", other, total)); }) +
             std::to_string(total);
    for (std::string const& call : calls) {
        Ptr<Table> result = brief("former");
        found += told(call, table, other, result);
    }
    return found;
}

TEST(SharedReads, GiveEveryThreadWhatItWouldFindAlone) {
    for (bool const described : {false, true}) { // attributes are made when they are first asked for
        Ptr<Table> const table = brief(sharedTable, "shared");
        if (described) {
            (void)table->setAttribute("unit", Cell("a text of many characters"));
        }
        Operand const other = brief("A 1 2 | B y {n C 1 } | G 7", "other");
        constexpr std::size_t count = 4;
        std::vector<std::set<std::string>> found(count);
        std::vector<std::thread> threads;
        for (std::set<std::string>& each : found) {
            threads.emplace_back([&each, table = Operand(table), other] {
                for (int round = 0; round < 20; ++round) {
                    each.insert(readTable(*table, table, other));
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        std::set<std::string> const alone = {readTable(*table, table, other)};
        for (std::set<std::string> const& each : found) {
            EXPECT_EQ(each, alone);
        }
        EXPECT_EQ(table.useCount(), 1U);
    }
}

TEST(SharedReads, MakeAttributesOnceForAll) {
    for (int round = 0; round < 100; ++round) {
        Ptr<Table> const table = brief("A 1");
        std::vector<Ptr<Table>> attributes(4);
        std::vector<Ptr<Table>> copies(attributes.size());
        std::vector<std::thread> threads;
        for (std::size_t k = 0; k < attributes.size(); ++k) {
            threads.emplace_back([&, k] {
                copies[k] = Ptr<Table>(new Table(*table));
                attributes[k] = table->getAttributes();
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        (void)table->setAttribute("unit", Cell("km"));
        for (std::size_t k = 0; k < attributes.size(); ++k) {
            Cell unit;
            (void)copies[k]->getAttribute("unit", unit);
            EXPECT_EQ(printed(unit), "km");
            EXPECT_EQ(brief(*attributes[k]), "unit km");
        }
    }
}

} // namespace
} // namespace QX
