#include "generated.h"
#include "operations.h"

#include <pthread.h>

#include <functional>

namespace QX {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int levels = 100'000;
#elif defined(__has_feature)
constexpr int levels = __has_feature(address_sanitizer) ? 100'000 : 1'000'000;
#else
constexpr int levels = 1'000'000;
#endif

/// Runs `work` on a stack of 1 MiB, far too small for a call for each level.
void onSmallStack(std::function<void()> const& work) {
    pthread_attr_t attributes;
    pthread_t thread;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, 1 << 20), 0);
    auto const run = [](void* task) -> void* {
        (*static_cast<std::function<void()> const*>(task))();
        return nullptr;
    };
    std::function<void()> task = work;
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &task), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

/// A table in a table, and so on, with `leaf` innermost.
Ptr<Table> chain(int depth, char const* leaf = "a 7") {
    Ptr<Table> chain = brief(leaf);
    Cell const name("a");
    for (int i = 0; i < depth; ++i) {
        Ptr<Table> const outer(new Table("n"));
        outer->at(0, 1) = Cell(chain);
        outer->at(0, 0) = name;
        chain = outer;
    }
    return chain;
}

/// The brief form of a table, its nested tables only to some depth.
std::string form(Table const& table, int depth = 0) {
    std::string form = string(table.name()) + ":";
    for (std::size_t i = 0; i < table.indices(); ++i) {
        form += i == 0 ? "" : " |";
        for (std::size_t j = 0; j < table.items(i); ++j) {
            Ptr<Table> const inner = nested(table.get(i, j));
            form += " " + (!inner       ? brief(table.get(i, j))
                           : depth == 0 ? "{}"
                                        : "{" + QX::form(*inner, depth - 1) + "}");
        }
    }
    return form;
}

/// The forms of all levels of a chain, repeated ones once, and how many levels there are.
std::pair<std::string, int> shape(Ptr<Table> chain) {
    std::string all;
    std::string last;
    int depth = -1;
    for (; chain; ++depth) {
        if (std::string const level = form(*chain); level != last) {
            all += level + "\n";
            last = level;
        }
        chain = nested(chain->get(0, 1));
    }
    return {all, depth};
}

/// A table of one number.
Ptr<Table> single(double value) {
    Ptr<Table> const table(new Table("number"));
    table->at(0, 0) = Cell(value);
    return table;
}

using Operation = std::function<Ptr<Table>(Ptr<Table> const& table, int depth)>;

Operation calling(char const* call) {
    return [call](Ptr<Table> const& t, int) {
        Ptr<Table> result;
        EXPECT_EQ(outcome(run(call, *t, t, result)), "Ok");
        return result;
    };
}

TEST(Depth, OperationsGoToAnyDepth) {
    std::pair<char const*, Operation> const operations[] = {
        {"clone", [](Ptr<Table> const& t, int) { return t->clone(); }},
        {"cell of a const table", [](Ptr<Table> const& t, int) { return nested(Cell(Operand(t))); }},
        {"overlay", calling("overlay items")},
        {"overlay matched", calling("overlay matched")},
        {"makeTemplate", calling("makeTemplate")},
        {"operation",
         [](Ptr<Table> const& t, int depth) {
             Ptr<Table> result;
             (void)t->operation(t, "+", chain(depth, "- %D"), result);
             return result;
         }},
        {"unaryOperation",
         [](Ptr<Table> const& t, int depth) {
             double total = 0;
             (void)t->unaryOperation("+", chain(depth, "- %D"), total);
             return single(total);
         }},
        {"check", [](Ptr<Table> const& t, int) { return single(t->check()); }},
        {"match", [](Ptr<Table> const& t, int) { return single(t->match(t, false)); }},
        {"compare", calling("compare")},
    };
    onSmallStack([&operations] {
        Ptr<Table> const shallow = chain(3);
        Ptr<Table> const deep = chain(levels);
        for (auto const& [name, operation] : operations) {
            SCOPED_TRACE(name);
            auto const [small, smallDepth] = shape(operation(shallow, 3));
            auto const [large, depth] = shape(operation(deep, levels));
            EXPECT_EQ(large, small);
            EXPECT_EQ(depth, smallDepth == 0 ? 0 : levels);
        }
    });
}

TEST(Depth, PathsDifferencesAndDisplaysGoToAnyDepth) {
    onSmallStack([] {
        Ptr<Table> const left = chain(levels);
        std::string path;
        std::string expected =
            "Table - " + std::to_string(levels - 1) + "\nIndex 0 <a> " + printed(Cell(7)) + " \n";
        for (int i = levels; i-- > 0;) {
            path += "/a[1]";
            expected += "Table - " + (i == 0 ? "n" : std::to_string(i - 1)) + "\nIndex 0 <a> `Table " +
                        std::to_string(i) + "' \n";
        }
        EXPECT_EQ(text(left->atXPath(Str(path + "/a"), Cell())), "7");
        Ptr<Table> const right = chain(levels, "a 8");
        EXPECT_FALSE(left->match(right, false));
        Ptr<Table> result;
        (void)left->compare(right, result, false);
        EXPECT_TRUE(text(result->get(0, 1)) == path + "/a[1]");
        EXPECT_EQ(text(result->get(1, 1)) + text(result->get(2, 1)), "78");
        EXPECT_TRUE(shown(*left) == expected);
    });
}

TEST(Depth, PathsMakeChainsOfTables) {
    std::string path;
    for (int i = 0; i < levels; ++i) {
        path += "step/";
    }
    onSmallStack([&path] {
        Table attributed;
        (void)attributed.setAttribute(Str(path + "end"), Cell(7));
        Cell value;
        (void)attributed.getAttribute(Str(path + "end"), value);
        EXPECT_EQ(text(value), "7");
    });
}

struct Derived final : Table {
    std::ostream& display(std::ostream& os, int number) const override {
        return Table::display(os << "derived ", number);
    }
};

TEST(Depth, ChainsOfEverySortAreCopiedAndReleased) {
    onSmallStack([] {
        Ptr<Table> chain = brief("a 7");
        for (int i = 0; i < levels; ++i) {
            Ptr<Table> const outer(i % 3 == 0 ? new Derived : new Table("n"));
            if (i % 2 == 0) {
                (void)outer->setAttribute("a", Cell(chain));
            } else {
                outer->at(1, 2) = Cell(Ptr<Table>(new Table(*chain)));
            }
            chain = outer;
        }
        chain = chain->clone();
        for (int i = levels; i-- > 0;) {
            Cell inner = chain->get(1, 2);
            if (i % 2 == 0) {
                (void)chain->getAttribute("a", inner);
            }
            chain = nested(inner);
            ASSERT_TRUE(chain);
        }
        EXPECT_EQ(form(*chain), "t: a 7");
    });
}

/// Tables that refer to each other: brief forms separated by "/", where "@2" stands for table 2 and "^2"
/// keeps table 2 among the attributes.
class Knot {
public:
    explicit Knot(std::string const& forms) {
        std::istringstream words(forms);
        std::size_t const count =
            1 + static_cast<std::size_t>(std::count(forms.begin(), forms.end(), '/'));
        for (std::size_t k = 0; k < count; ++k) {
            tables_.emplace_back(new Table("t" + std::to_string(k)));
        }
        std::size_t k = 0;
        std::size_t i = 0;
        for (std::string word; words >> word;) {
            if (word == "/") {
                ++k;
                i = 0;
            } else if (word == "|") {
                ++i;
            } else if (word.front() == '^') {
                (void)tables_[k]->setAttribute("a", Cell(tables_[std::stoul(word.substr(1))]));
            } else {
                Table& table = *tables_[k];
                Cell const cell = word.front() == '@' ? Cell(tables_[std::stoul(word.substr(1))])
                                                      : briefCell(words, word);
                table.at(i, i < table.indices() ? Table::npos : 0) = cell;
            }
        }
    }
    Knot(Knot const&) = delete;
    Knot& operator=(Knot const&) = delete;
    ~Knot() {
        for (Ptr<Table> const& table : tables_) {
            table->setAttributes(nullptr);
            for (std::size_t i = 0; i < table->indices(); ++i) {
                for (std::size_t j = 0; j < length(*table, i); ++j) {
                    table->at(i, j) = Cell();
                }
            }
        }
    }

    Ptr<Table> const& operator[](std::size_t k) const { return tables_[k]; }
    /// Everything about the tables.
    std::string state() const {
        std::string all;
        for (Ptr<Table> const& table : tables_) {
            all += exact(*table) + exact(*table->getAttributes()) + '\n';
        }
        return all;
    }

    /// What a call gives: its name, the flags, and the numbers of the tables.
    std::string told(std::string const& call) const {
        std::istringstream words(call);
        std::string name;
        std::string flags;
        std::vector<Ptr<Table>> t;
        for (std::string word; words >> word;) {
            if (std::isdigit(static_cast<unsigned char>(word.front())) != 0) {
                t.push_back(tables_[std::stoul(word)]);
            } else {
                (name.empty() ? name : flags) += word + (name.empty() ? "" : " ");
            }
        }
        std::string done;
        std::string const failure = raised([&] { done = called(name, flags, t); });
        return failure == "Table contains itself" ? "endless" : failure + done;
    }

private:
    static std::string called(std::string const& name, std::string const& flags,
                              std::vector<Ptr<Table>> const& t) {
        Ptr<Table> result;
        double total = 0;
        if (name == "check" || name == "match") {
            return (name == "check" ? t[0]->check() : t[0]->match(t[1], false)) ? "yes" : "no";
        }
        if (name == "display") {
            return std::to_string(shown(*t[0]).size());
        }
        if (name == "clone" || name == "cell") {
            return form(name == "cell" ? *nested(Cell(Operand(t[0]))) : *t[0]->clone(), 2);
        }
        if (name == "unary") {
            (void)t[0]->unaryOperation("+", t[1], total);
            return std::to_string(static_cast<int>(total));
        }
        Status const status = name == "operation" ? t[0]->operation(t[1], "+", t[2], result)
                                                  : run(name + " " + flags, *t[0], t[1], result);
        return (status.ok() ? "" : outcome(status) + " ") + form(*result, 2);
    }

    std::vector<Ptr<Table>> tables_;
};

TEST(SelfContaining, OnlyAnEndlessDescentRaises) {
    for (Row const& row : rows(R"(
        a @0 ; 0 0 0
        a 1 | b 2 @1 / a 1 | b 2 @2 / a 1 | b 2 @0 ; 0 0 0   <- through two others
        a @1 / a @0 / a @3 / a @4 / a @2 ; 0 2 3   <- round in two and in three steps
        a @1 / a @2 / a @3 / a @4 / a @5 / a @6 / a @4 ; 0 1 2   <- down some steps first
    )")) {
        SCOPED_TRACE(row.line);
        std::string const left = row[1].substr(0, 1);
        std::string const right = row[1].substr(0, 3);
        Knot const knot(row[0]);
        std::string const before = knot.state();
        EXPECT_EQ(knot.told("check " + left), "no");
        for (char const* call :
             {"clone ", "cell ", "display ", "compare ", "match ", "overlay ", "overlay items ",
              "overlay matched ", "makeTemplate ", "unary ", "operation "}) {
            EXPECT_EQ(knot.told(call + row[1]), "endless") << call;
        }
        EXPECT_EQ(knot.state(), before);
    }
    for (Row const& row : rows(R"(
        a ^0 ; clone 0 ; endless   <- among the attributes only
        a ^0 ; cell 0 ; endless
        a @1 / b ^0 ; clone 0 ; endless
        a ^0 ; check 0 ; yes
        a ^0 ; match 0 0 ; yes
        a ^0 ; display 0 ; 24
        a @1 @1 | b @1 / c @2 @2 / d 7 ; clone 0 ; t0: a {t1: c {t2: d 7} {t2: d 7}} {t1: c {t2: d 7} {t2: d 7}}
            ;; | b {t1: c {t2: d 7} {t2: d 7}} -
        a 1 @0 / a 2 @1 ; match 0 1 ; no   <- differs before
        a 1 @0 / a 2 @1 ; compare 0 1 ; endless
        a @0 1 / a @1 2 ; match 0 1 ; endless
        a @0 / a {n a 5 } ; compare 0 1 ; t0 and t1: Xpath /a[1]/a[1] | Left {t0: a {t0: a {}}} | Right 5
        a @0 / a {n a 5 } ; match 0 1 ; no
        a @0 / a {n a 5 } ; makeTemplate 0 1 ; : - {: - -}
        a @0 / a {n a 5 } ; overlay items 0 1 ; t1: a {n: a 5}
        a {n a 5 } / a @1 ; overlay items 0 1 ; endless   <- by the operand alone
        a {n a 5 } / a @1 ; overlay 0 1 ; t1: a {t1: a {t1:}}
        a {n a 5 } / a @1 ; overlay matched items 0 1 ; t1: a {t1: a {t1:}}
        a @0 / - {n - - } ; operation 0 0 1 ; + operation : a {+ operation : a {t0: a {}}}
        a @0 7 / - {n - - %D } ; unary 0 1 ; 7
        a {n b 1 } / a @1 ; unary 0 1 ; Mismatched table structure
        a @0 | a @1 / b 1 / a @2 ; overlay matched 2 0 ; endless   <- over what was just made
        a @0 | a @1 / b 1 / a @2 ; overlay 2 0 ; endless
        a @0 | a @1 / a 5 / a @2 ; overlay matched items 2 0 ; t0: a {t0: a {t0:}}
    )")) {
        SCOPED_TRACE(row.line);
        Knot const knot(row[0]);
        std::string const before = knot.state();
        EXPECT_EQ(knot.told(row[1]), row[2] + (row[3].empty() ? "" : " " + row[3]));
        EXPECT_EQ(knot.state(), before);
    }
}

TEST(SelfContaining, DerivedTablesRaiseBeforeTheirCallsFillTheStack) {
    onSmallStack([] {
        Ptr<Table> const table(new Derived);
        table->at("a", 1) = Cell(brief("b {n c 1 }"));
        EXPECT_EQ(raised([&] { shown(*table); }), "");
        nested(table->get(0, 1))->at(0, 1) = Cell(table);
        EXPECT_EQ(raised([&] { shown(*table); }), "Table contains itself");
        table->at(0, 1) = Cell();
        EXPECT_EQ(shown(*table), "derived Table - \nIndex 0 <a> [Empty] \n");
    });
}

/// A table that holds the next one twice, sixty levels deep.
Ptr<Table> doubled(char const* leaf) {
    Ptr<Table> table = brief(leaf);
    for (int i = 0; i < 60; ++i) {
        Ptr<Table> const outer = brief("a");
        outer->at(0, 1) = outer->at(0, 2) = Cell(table);
        table = outer;
    }
    return table;
}

TEST(Sharing, ManyWaysToATableTakeNoTime) {
    Ptr<Table> const left = doubled("a 1 5");
    EXPECT_TRUE(left->check());
    EXPECT_TRUE(left->match(doubled("a 1 5"), false));
    EXPECT_FALSE(left->match(doubled("a 1 6"), false));
    Ptr<Table> result;
    (void)left->compare(doubled("a 1 5"), result, false);
    EXPECT_EQ(result->indices(), 0U);
    double total = 0;
    (void)left->unaryOperation("+", doubled("- %D -"), total);
    EXPECT_EQ(total, 0x1p60);
    std::string path;
    for (int i = 0; i < 60; ++i) {
        path += "a/";
    }
    EXPECT_EQ(brief(left->atXPath(Str(path + "a"), Cell())), "1");
    EXPECT_EQ(brief(left->atXPath(Str(path + "b[7]"), Cell())), "-");
    EXPECT_EQ(brief(doubled("")->atXPath(Str(path + "a"), Cell())), "-") << "each leads nowhere";
    Table described;
    described.setAttributes(left);
    Cell value;
    (void)described.getAttribute(Str(path + "a"), value);
    EXPECT_EQ(brief(value), "1");
}

/// Restores the limit that a test has changed.
struct RepeatLimit {
    explicit RepeatLimit(std::size_t limit) { Table::setRepeatLimit(limit); }
    RepeatLimit(RepeatLimit const&) = delete;
    RepeatLimit& operator=(RepeatLimit const&) = delete;
    ~RepeatLimit() { Table::setRepeatLimit(former); }

    std::size_t former = Table::repeatLimit();
};

TEST(Sharing, WhatRepeatsEachWayEndsAtALimit) {
    RepeatLimit const limit(1000);
    Ptr<Table> const t = doubled("a 1 5");
    Ptr<Table> const other = doubled("a 1 6");
    Ptr<Table> const templ = doubled("- %D -");
    Ptr<Table> result;
    std::ostringstream os;
    std::pair<char const*, std::function<void()>> const calls[] = {
        {"clone", [&] { t->clone(); }},
        {"cell of a table const", [&] { Cell const cell{Ptr<Table const>(t)}; }},
        {"display", [&] { t->display(os); }},
        {"compare", [&] { (void)t->compare(other, result, false); }},
        {"overlay", [&] { (void)t->overlay(other, result, false, false, true); }},
        {"operation", [&] { (void)t->operation(other, "+", templ, result); }},
        {"makeTemplate", [&] { (void)t->makeTemplate(other, result); }},
        {"append", [&] { (void)t->append(other, result, true, true); }},
        {"XPath", [&] { (void)t->XPath("a/a/a/a/a/a/a/a/a/a/a/a/a/a/a", result); }},
        {"atXPath", [&] { t->atXPath("a/a/a/a/a/a/a/a/a/a/a/a/a/a/a", true) = Cell(1); }},
    };
    for (auto const& [name, call] : calls) {
        SCOPED_TRACE(name);
        EXPECT_EQ(raised(call), "Nested tables repeat too often");
    }
    EXPECT_TRUE(t->match(doubled("a 1 5"), false)) << "inputs are as before";
}

TEST(Sharing, ManyCellsOfOneTableAreNoRepeats) {
    RepeatLimit const limit(1000);
    Ptr<Table> const t = brief("a");
    Ptr<Table> const leaf = brief("b 1");
    for (int i = 0; i < 5000; ++i) {
        t->at(0, Table::npos) = Cell(leaf);
    }
    EXPECT_TRUE(t->clone()->match(t, false));
}

} // namespace
} // namespace QX
