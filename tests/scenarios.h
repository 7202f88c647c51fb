#pragma once

#include "operations.h"

#include <array>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace QX {

/// A buffer for streams that needs no memory beyond its own.
class FixedBuffer : public std::streambuf {
public:
    FixedBuffer() { clear(); }
    void clear() { setp(room_.data(), room_.data() + room_.size()); }
    std::string_view text() const { return {pbase(), static_cast<std::size_t>(pptr() - pbase())}; }

private:
    std::array<char, 8192> room_;
};

/// A moniker whose texts can be set.
class OpenMoniker : public Moniker {
public:
    using Moniker::moniker;
    using Moniker::Moniker;
};

inline Ptr<Table> bodilessTable() {
    return Ptr<Table>(new Table(Ptr<TableImplementation>()));
}

/// The objects that a scenario works on, all its own.
struct Objects {
    Ptr<Table> table =
        brief("name 3 1 2 1 - | rate x 1.5 2026-11-22 !boom ?2.5 | 7 nan 0.3 1970-01-02 1 -inf |"
              " | sub {n X 1 | Y {k Z 2 } } {m X 3 | Y 4 } | a_name_longer_than_short_ones"
              " and_a_text_that_is_longer_than_short_ones \"\" x x");
    Ptr<Table> operand =
        brief("rate 9 8 | sub {n X 5 | W 6 } - {l V 7 } | new_index_with_a_long_name 1 - 2 |"
              " 7 - another_text_longer_than_short_ones",
              "u");
    Ptr<Table> picks = brief("rate | 7 seven | missing");
    Ptr<Table> keys = brief("7 | name | rate");
    Ptr<Table> conditions = brief("name 1 2 5 6 7 8 | rate x");
    Ptr<Table> guide;
    Ptr<Table> bodiless = bodilessTable();
    Ptr<Table> result = brief("former");
    std::vector<Cell> cells{
        Cell(),
        Cell("a text that is longer than a short one"),
        Cell("2026-11-22"),
        Cell(20779),
        Cell(0.3),
        undefined(),
        Cell(brief("X 1")),
        Cell(Status("boom, with a longer message than a short one", Status::Error, -1))};
    TblPath path{"/a/b[2]/c"};
    LibraryBase library{7};
    OpenMoniker moniker{"a moniker's name that is longer than a short one"};
    FixedBuffer buffer;
    std::ostream stream{&buffer};
    Log log;
    std::string found; // what the scenario has read

    /// With `many`, there are so many indices that names are looked up by their keys.
    explicit Objects(bool many = false) {
        table->at("void", 1, Cell(bodilessTable()));
        for (int i = 0; many && i < 20; ++i) {
            Str const name = Str("w") + Str::asString(i);
            table->at(name, 1, Cell(i));
            operand->at(name, 2, Cell(i));
            picks->at(name, 0);
        }
        (void)table->makeTemplate(table, guide);
        (void)table->setAttribute("unit", Cell("eur"));
        (void)table->setAttribute("style/width[2]", Cell(7));
        stream.exceptions(std::ios::badbit);
        log.setStream(&stream, false);
        log.setDateDisplay(false);
        log.setTimeDisplay(false);
    }

    /// Everything that no failure may change.
    std::string inputs() const {
        std::string all;
        for (Ptr<Table> const& each : {table, operand, picks, keys, conditions, guide, bodiless}) {
            all += shown(*each);
        }
        for (Cell const& cell : cells) {
            all += brief(cell) + ' ';
        }
        all += shown(*table->getAttributes());
        return all + string(path.stripPath()) + string(library.name()) + string(library.interfaces()) +
               string(moniker.name()) + string(moniker.moniker());
    }
    /// Everything after a scenario.
    std::string outcome() const {
        return inputs() + "\nresult " + named(result) + "\nfound " + found + "\nwrote " +
               std::string(buffer.text());
    }
};

/// One use of the library. Of the objects' inputs it changes at most one, in its last step.
struct Scenario {
    std::string name;
    std::function<void(Objects&)> run;
    bool looksUp = false; // looks up many names
};

/// Scenarios of every exported operation.
inline std::vector<Scenario> scenarios() {
    std::vector<Scenario> all{
        {"cells of all kinds",
         [](Objects& o) {
             Cell cells[] = {Cell("12.5"),
                             Cell("a text that is longer than a short one"),
                             Cell("#Err: a message that is longer than a short one"),
                             Cell(number(1, false)),
                             Cell(Status("x", Status::Warning, 1)),
                             Cell(o.table),
                             Cell(Ptr<Table const>(o.table)),
                             Cell(Ptr<Table>()),
                             Cell(Ptr<Table const>())};
             Cell copy(cells[0]);
             copy = cells[1];
             Cell const moved(std::move(copy));
             for (Cell const& cell : cells) {
                 o.found += brief(cell) + ' ';
             }
         }},
        {"conversions of cells",
         [](Objects& o) {
             for (Cell const& cell : o.cells) {
                 Status status;
                 Date date;
                 int whole = 0;
                 bool truth = false;
                 double fraction = 0;
                 AnalyticDouble analytic;
                 Ptr<Table> nested;
                 Ptr<Table const> constant;
                 o.found += text(cell, -1) + text(cell, 0) + text(cell, 30);
                 for (Status const& done :
                      {cell.get(status), cell.get(date), cell.get(whole), cell.get(truth),
                       cell.get(fraction), cell.get(analytic), cell.get(nested), cell.get(constant)}) {
                     o.found += outcome(done) + ' ';
                 }
             }
         }},
        {"comparing and computing with cells",
         [](Objects& o) {
             for (Cell const& left : o.cells) {
                 for (Cell const& right : o.cells) {
                     o.found += left.compare(right, true) ? '=' : left < right ? '<' : '-';
                     o.found += brief(left.operation(right, "%"));
                 }
             }
         }},
        {"display", [](Objects& o) { o.table->display(o.stream, 3) << o.cells[7] << number(1.5); }},
        {"paths as texts",
         [](Objects& o) {
             TblPath path("//a_step_with_a_long_name[2]/another_step_with_a_long_name/b[x]");
             TblPath copy(path);
             TblPath const moved(std::move(copy));
             Str name;
             std::size_t index = 0;
             o.found += outcome(path.currentPath(name, index, true)) + string(name);
             o.found +=
                 outcome(path.finalPath(name, index)) + outcome(path.nextPath(name)) + string(name);
             o.found += string(path.stripPath()) + string(moved.parent());
             o.path = path;
         }},
        {"messages to a log",
         [](Objects& o) {
             Log log(o.log);
             log.setName("a name of a log that is longer than a short one");
             log.send("text", Log::Info);
             Report const report(Status("a message that is longer than a short one", Status::Error, -1),
                                 "file", 1);
             log.send(report, Log::Info);
             log.send(Except(report, std::make_unique<Except>(report)), Log::Info);
             log.report();
             log.setLevel(Log::Error);
             log.send("hidden", Log::Info);
             o.log = log;
         }},
        {"a log's stamps",
         [](Objects& o) {
             FixedBuffer buffer;
             std::ostream stream(&buffer);
             Log log;
             log.setStream(&stream, false);
             log.setName("a name of a log that is longer than a short one");
             log.send("text", Log::Info);
             o.found += std::to_string(buffer.text().size());
         }},
        {"a log to a file",
         [](Objects& o) {
             Log log(o.log);
#if defined(_WIN32)
             log.setStream("NUL");
#else
             log.setStream("/dev/null");
#endif
             log.send("text", Log::Info);
         }},
        {"libraries",
         [](Objects& o) {
             LibraryBase other(o.library);
             other.name("a library's name that is longer than a short one");
             o.found += string(other.interfaces());
             other = LibraryBase(8);
             other.name("another name that is longer than a short one");
             o.library = other;
         }},
        {"monikers",
         [](Objects& o) {
             OpenMoniker other(o.moniker);
             o.found += string(other.create("another name that is longer than a short one"));
             other.moniker("a moniker that is longer than a short one");
             o.moniker = other;
         }},
        {"handles",
         [](Objects& o) {
             Ptr<Table> const made(new Table("a name that is longer than a short one"));
             Ptr<Table const> const shared(made);
             o.found += string(shared->name()) + std::to_string(made.useCount());
             o.result = made;
         }},
        {"exceptions",
         [](Objects& o) {
             Report const report(Status("a message that is longer than a short one", Status::Error, -1),
                                 "a file name that is longer than a short one", 1);
             Except const wrapping(report, std::make_unique<Except>(report));
             Except const copy(wrapping);
             o.stream << wrapping << copy;
             o.found += raised([&] { (void)o.table->merge(Ptr<Table const>(), o.result, false); });
             o.found +=
                 raised([&] { (void)o.table->select(o.conditions, o.result, false, false, false); });
             o.found += raised([&] { o.table->atXPath("rate/x", false); });
         }},
        {"handles of tables",
         [](Objects& o) {
             Table const copy(*o.table);
             Table assigned("a name that is longer than a short one");
             assigned = copy;
             Table const empty;
             o.found +=
                 brief(assigned) + string(empty.name()) + (assigned == o.table ? "same" : "other");
             o.found += outcome(assigned.alias(o.table, o.result));
         }},
        {"reading",
         [](Objects& o) {
             Table const& table = *o.table;
             o.found += brief(table.at("a_name_longer_than_short_ones", 1)) + brief(table.get(0, 9));
             o.found += brief(table.atXPath("sub/Y[1]/Z", Cell())) + (table.check() ? "sound" : "");
             o.found += outcome(table.XPath("sub/X", o.result)) + outcome(table.XPath("/", o.result));
             Cell unit;
             o.found += outcome(table.getAttribute("style/width[2]", unit)) + brief(unit);
             o.found += brief(*o.bodiless->getAttributes()) + brief(o.bodiless->atXPath("a/b", Cell()));
         }},
        {"clone", [](Objects& o) { o.result = o.table->clone(); }},
        {"match",
         [](Objects& o) { o.found += o.table->match(o.operand, false) ? "equal" : "different"; }},
        {"operation",
         [](Objects& o) { o.found += outcome(o.table->operation(o.table, "+", o.guide, o.result)); }},
        {"unaryOperation",
         [](Objects& o) {
             double total = 0;
             o.found += outcome(o.table->unaryOperation("+", o.guide, total)) + brief(Cell(total));
         }},
        {"overlay of nothing",
         [](Objects& o) { (void)o.table->overlay(Ptr<Table const>(), o.result, false, false, false); }},
        {"rows whose display begins alike",
         [](Objects& o) {
             Ptr<Table> const rows = brief("A - {n X 1 }");
             rows->at("A", 1, Cell("Table - n\nIndex"));
             (void)rows->append(o.bodiless, o.result, true, true);
         }},
        {"setAttributes", [](Objects& o) { o.table->setAttributes(o.operand); }},
        {"setAttributes to none", [](Objects& o) { o.table->setAttributes(Ptr<Table>()); }},
        {"assignment of a new table", [](Objects& o) { *o.table = Table("new"); }},
        {"at(9, 2)", [](Objects& o) { o.table->at(9, 2) = o.cells[1]; }},
        {"at(npos, npos)", [](Objects& o) { o.table->at(Table::npos, Table::npos) = o.cells[1]; }},
        {"at(1, npos)", [](Objects& o) { o.table->at(1, Table::npos) = o.cells[1]; }},
        {"at(9, 2, cell)", [](Objects& o) { o.table->at(9, 2, o.table->get(1, 1)); }},
    };
    for (char const* const name : {"rate", "a_new_name_longer_than_short_ones"}) {
        std::string const title = std::string(name) + " by name";
        all.push_back({title, [name](Objects& o) { o.table->at(name, 9) = o.cells[1]; }});
        all.push_back(
            {title + ", npos", [name](Objects& o) { o.table->at(name, Table::npos) = Cell(); }});
        all.push_back({title + ", stored", [name](Objects& o) { o.table->at(name, 9, o.cells[1]); }});
        all.push_back(
            {title + " of no body", [name](Objects& o) { o.bodiless->at(name, 2, o.cells[1]); }});
    }
    for (char const* const path :
         {"rate[2]", "one_step/two_steps/three_steps", "one_step/refused[2]/last", "sub/X[4]",
          "sub/void/new[3]/last", "void/a/b", "rate/refused"}) {
        std::string const title = std::string(path) + " by path";
        auto const refusable = [](Objects& o, auto const& call) {
            try {
                call();
            } catch (Except const&) {
                o.found = "refused";
            }
        };
        all.push_back({title, [=](Objects& o) {
                           refusable(o, [&] { o.table->atXPath(path, true) = o.cells[1]; });
                       }});
        all.push_back({title + ", attribute", [=](Objects& o) {
                           refusable(o, [&] { (void)o.table->setAttribute(path, o.cells[1]); });
                       }});
        all.push_back({title + " of no body", [=](Objects& o) {
                           refusable(o, [&] { o.bodiless->atXPath(path, true) = o.cells[1]; });
                       }});
    }
    using Operands = Ptr<Table> Objects::*;
    for (auto const& [call, operands] : std::initializer_list<std::pair<char const*, Operands>>{
             {"merge", &Objects::operand},
             {"merge by name", &Objects::operand},
             {"fill 9", &Objects::operand},
             {"append", &Objects::operand},
             {"append all distinct", &Objects::operand},
             {"overlay", &Objects::operand},
             {"overlay matched empties items", &Objects::operand},
             {"select", &Objects::picks},
             {"select keep distinct", &Objects::picks},
             {"select invert keep", &Objects::picks},
             {"filter", &Objects::conditions},
             {"filter exclude", &Objects::conditions},
             {"sort", &Objects::keys},
             {"sort up", &Objects::keys},
             {"transpose", &Objects::keys},
             {"compare", &Objects::operand},
             {"makeTemplate", &Objects::table},
         }) {
        all.push_back({call,
                       [call = std::string(call), operands = operands](Objects& o) {
                           o.found += outcome(run(call, *o.table, o.*operands, o.result));
                       },
                       true});
    }
    return all;
}

} // namespace QX
