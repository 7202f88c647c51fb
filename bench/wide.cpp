// Tables of thousands of indices of four items each: combined, searched and turned.

#include "families.h"
#include "rows.h"
#include "workload.h"

#include <cstdio>

namespace Bench {

namespace {

std::size_t const n = 2'000;
std::size_t const depth = 4;

std::string nameOf(std::size_t number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "reading %06zu", number * 7919 % 1'000'003);
    return text.data();
}

/// n indices, the first of which is number `begin`.
Ptr<Table> wideTable(std::size_t begin, std::size_t size) {
    Ptr<Table> const table(new Table("readings"));
    for (std::size_t i = 0; i < size; ++i) {
        table->at(i, 0) = Str(nameOf(begin + i));
        for (std::size_t j = 1; j <= depth; ++j) {
            table->at(i, j) = static_cast<double>(begin + i) + static_cast<double>(j) / 8;
        }
    }
    return table;
}

Json wideJson(std::size_t begin, std::size_t size) {
    Json object = Json::object();
    for (std::size_t i = 0; i < size; ++i) {
        Json& values = object[nameOf(begin + i)];
        for (std::size_t j = 1; j <= depth; ++j) {
            values.push_back(static_cast<double>(begin + i) + static_cast<double>(j) / 8);
        }
    }
    return object;
}

Answer tableAnswer(Ptr<Table> const& table) {
    Tally tally(Order::Any);
    for (std::size_t i = 0; i < table->indices(); ++i) {
        for (std::size_t j = 0; j < table->items(0) && !table->get(i, j).empty(); ++j) {
            take(tally, table->get(i, j));
        }
        tally.endRow();
    }
    return tally.answer();
}

Answer jsonAnswer(Json const& object) {
    Tally tally(Order::Any);
    for (auto const& [name, values] : object.items()) {
        tally << name;
        for (Json const& value : values) {
            take(tally, value);
        }
        tally.endRow();
    }
    return tally.answer();
}

/// Combines two tables that have half of their names in common.
template <typename Combine>
Prepare byQx(Combine combine) {
    return [combine](std::size_t size) {
        return job(
            [combine, table = wideTable(0, size),
             operand = Ptr<Table const>(wideTable(size / 2, size))] {
                Ptr<Table> made;
                combine(*table, operand, made);
                return made;
            },
            tableAnswer);
    };
}

template <typename Combine>
Prepare byJson(Combine combine) {
    return [combine](std::size_t size) {
        return job(
            [combine, object = wideJson(0, size), operand = wideJson(size / 2, size)] {
                Json made = object;
                combine(made, operand);
                return made;
            },
            jsonAnswer);
    };
}

void addCombined() {
    Prepare const update = byJson([](Json& made, Json const& operand) { made.update(operand); });
    add({"wide/merge by name",
         n,
         byQx([](Table const& table, Ptr<Table const> const& operand, Ptr<Table>& made) {
             (void)table.merge(operand, made, true);
         }),
         {{"json", update}}});
    add({"wide/overlay",
         n,
         byQx([](Table const& table, Ptr<Table const> const& operand, Ptr<Table>& made) {
             (void)table.overlay(operand, made, false, true, true);
         }),
         {{"json", update}}});
    add({"wide/append by name",
         n,
         byQx([](Table const& table, Ptr<Table const> const& operand, Ptr<Table>& made) {
             (void)table.append(operand, made, false, false);
         }),
         {{"json", byJson([](Json& made, Json const& operand) {
               for (auto const& [name, values] : operand.items()) {
                   auto const found = made.find(name);
                   if (found != made.end()) {
                       found->insert(found->end(), values.begin(), values.end());
                   }
               }
           })}}});
}

std::vector<Str> namesOf(Table const& table) {
    std::vector<Str> names(table.indices());
    for (std::size_t i = 0; i < names.size(); ++i) {
        (void)table.get(i, 0).get(names[i], 0);
    }
    return names;
}

void addPicked() {
    add({"wide/select half by name",
         n,
         [](std::size_t size) {
             std::vector<std::string> names;
             for (std::size_t i = size; i > 0; i -= 2) {
                 names.push_back(nameOf(i - 1));
             }
             return job(
                 [table = wideTable(0, size), operand = namesTable(names)] {
                     Ptr<Table> picked;
                     (void)table->select(operand, picked, false, false, false);
                     return picked;
                 },
                 tableAnswer);
         },
         {}});
    add({"wide/look every name up",
         n / 4,
         [](std::size_t size) {
             Ptr<Table const> const table = wideTable(0, size);
             return job(
                 [table, names = namesOf(*table)] {
                     double sum = 0;
                     for (Str const& name : names) {
                         double number = 0;
                         (void)table->get(name, 1).get(number);
                         sum += number;
                     }
                     return sum;
                 },
                 single);
         },
         {{"json", [](std::size_t size) {
               Json const object = wideJson(0, size);
               std::vector<std::string> names;
               for (auto const& [name, values] : object.items()) {
                   names.push_back(name);
               }
               return job(
                   [object, names] {
                       double sum = 0;
                       for (std::string const& name : names) {
                           sum += object[name][0].get<double>();
                       }
                       return sum;
                   },
                   single);
           }}}});
}

Prepare turning(bool wide) {
    return [wide](std::size_t size) {
        Ptr<Table> table = tableOf(rowsOf(size));
        if (wide) {
            Ptr<Table> turned;
            (void)table->transpose(turned);
            table = turned;
        }
        return job(
            [table] {
                Ptr<Table> turned;
                (void)table->transpose(turned);
                return turned;
            },
            [](Ptr<Table> const& turned) { return answerOf(*turned); });
    };
}

} // namespace

void addWide() {
    addCombined();
    addPicked();
    add({"transpose/n rows of five", 50'000, turning(false), {}});
    add({"transpose/n indices of five", 50'000, turning(true), {}});
}

} // namespace Bench
