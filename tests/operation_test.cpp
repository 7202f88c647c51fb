// What all whole-table operations have in common.

#include "brief.h"

#include <chrono>
#include <functional>
#include <vector>

namespace QX {
namespace {

using Operand = Ptr<Table const>;

struct Operation {
    char const* name;
    char const* operand;    // one that the operation accepts for "A 1 {n X 5 } | B 3 4"
    char const* resultName; // of tables "t" and "u"
    char const* withNull;   // what a null operand raises
    std::function<Status(Table const&, Operand const&, Ptr<Table>&)> run;
};

char const* const leftForm = "A 1 {n X 5 } | B 3 4";
char const* const noOperand = "No operand table provided";

std::vector<Operation> operations() {
    using T = Table const&;
    using O = Operand const&;
    using R = Ptr<Table>&;
    return {
        {"merge", leftForm, "t and u", noOperand, [](T t, O o, R r) { return t.merge(o, r, false); }},
        {"merge by name", leftForm, "t and u", noOperand,
         [](T t, O o, R r) { return t.merge(o, r, true); }},
        {"fill", "A 7 | C 8", "t and t", noOperand, [](T t, O o, R r) { return t.fill(o, r, -1); }},
        {"append", leftForm, "u and t", "No append table provided",
         [](T t, O o, R r) { return t.append(o, r, true, false); }},
        {"append distinct", leftForm, "u and t", "No append table provided",
         [](T t, O o, R r) { return t.append(o, r, true, true); }},
        {"overlay", leftForm, "u", "",
         [](T t, O o, R r) { return t.overlay(o, r, false, false, true); }},
        {"select", "A | B Z", "t", noOperand,
         [](T t, O o, R r) { return t.select(o, r, true, false, false); }},
        {"select distinct", "A | B Z", "Distinct", noOperand,
         [](T t, O o, R r) { return t.select(o, r, true, true, false); }},
        {"select inverted", "A", "t", noOperand,
         [](T t, O o, R r) { return t.select(o, r, true, false, true); }},
        {"filter", "B 4 3", "t", noOperand, [](T t, O o, R r) { return t.filter(o, r, false, false); }},
        {"filter twice", "B 4 3 | B 3", "t", noOperand,
         [](T t, O o, R r) { return t.filter(o, r, true, true); }},
        {"sort", "B", "t", noOperand, [](T t, O o, R r) { return t.sort(o, r, false); }},
        {"compare", "A 2 | C 3 4", "t and u", noOperand,
         [](T t, O o, R r) { return t.compare(o, r, false); }},
        {"operation", "A 10 {n X 6 } | B 1 2", "+ operation ", noOperand,
         [](T t, O o, R r) { return t.operation(o, "+", brief("- %D {p - %D } | - - %D"), r); }},
        {"makeTemplate", leftForm, "", noOperand, [](T t, O o, R r) { return t.makeTemplate(o, r); }},
        {"transpose", "", "t", "", [](T t, O, R r) { return t.transpose(r); }},
    };
}

/// Runs `check` for every operation, with the form of the result in the plain case.
void forEach(std::function<void(Operation const&, std::string const& plain)> const& check) {
    for (Operation const& each : operations()) {
        SCOPED_TRACE(each.name);
        Ptr<Table> result;
        EXPECT_EQ(outcome(each.run(*brief(leftForm), brief(each.operand, "u"), result)), "Ok");
        ASSERT_TRUE(result);
        EXPECT_EQ(string(result->name()), each.resultName);
        check(each, brief(*result));
    }
}

bool refusesItself(Operation const& each) {
    return std::string(each.name).find("append") == 0 || std::string(each.name) == "overlay";
}

TEST(TableOperations, MakeANewTableAndChangeNoOther) {
    forEach([](Operation const& each, std::string const& plain) {
        Ptr<Table> const left = brief(leftForm);
        Ptr<Table> const right = brief(each.operand, "u");
        left->setAttribute("mark", 1);
        right->setAttribute("mark", 2);
        std::string const before = shown(*left) + shown(*right);
        Ptr<Table> const former = brief("r", "R");
        Ptr<Table> result = former;
        (void)each.run(*left, right, result);
        EXPECT_EQ(brief(*result), plain);
        EXPECT_NE(result.get(), former.get());
        EXPECT_EQ(result.useCount(), 1U);
        EXPECT_EQ(named(former), "R: r");
        EXPECT_EQ(shown(*left) + shown(*right), before);
        EXPECT_EQ(result->getAttributes()->indices(), 0U);
        EXPECT_TRUE(result->check());
    });
}

TEST(TableOperations, RaiseForANullOperand) {
    forEach([](Operation const& each, std::string const&) {
        Ptr<Table> const left = brief(leftForm);
        Ptr<Table> result = brief("r", "R");
        EXPECT_EQ(raised([&] { (void)each.run(*left, nullptr, result); }), each.withNull);
        EXPECT_EQ(named(result) == "R: r", *each.withNull != '\0');
    });
    Ptr<Table> const t = brief("A 1");
    Ptr<Table> result;
    double total = 9;
    EXPECT_EQ(raised([&] { (void)t->operation(t, "+", nullptr, result); }), noOperand);
    EXPECT_EQ(raised([&] { (void)t->unaryOperation("+", nullptr, total); }), noOperand);
    EXPECT_EQ(raised([&] { (void)t->match(nullptr, false); }), noOperand);
    EXPECT_EQ(total, 9);
    result = t;
    EXPECT_EQ(raised([&] { (void)t->append(nullptr, result, true, true); }), "No append table provided")
        << "before the result is looked at";
}

TEST(TableOperations, MayReplaceTheLastHandleOfTheirInputs) {
    forEach([](Operation const& each, std::string const& plain) {
        Ptr<Table> result = brief(each.operand, "u");
        Operand operand = result;
        Table const& right = *operand;
        (void)each.run(*brief(leftForm), operand, result);
        EXPECT_EQ(brief(*result), plain) << "result and operand";
        EXPECT_EQ(brief(right), brief(*brief(each.operand)));
        if (!refusesItself(each)) {
            result = brief(leftForm);
            (void)each.run(*result, operand, result);
            EXPECT_EQ(brief(*result), plain) << "result and this table";
        }
    });
}

TEST(TableOperations, AcceptThisTableAsOperand) {
    for (Operation const& each : operations()) {
        SCOPED_TRACE(each.name);
        Ptr<Table> const itself = brief("A 1");
        Ptr<Table> result;
        Ptr<Table> expected;
        if (each.name != std::string("operation")) {
            (void)each.run(*itself, brief("A 1"), expected);
            (void)each.run(*itself, itself, result);
            EXPECT_EQ(named(result), named(expected));
        }
    }
    Ptr<Table> const t = brief("A 1 x");
    Ptr<Table> result;
    (void)t->operation(t, "+", t, result);
    EXPECT_EQ(brief(*result), "A 1 x");
}

TEST(TableOperations, AppendAndOverlayRefuseThisTableAsResult) {
    Ptr<Table> const t = brief("A 1");
    Ptr<Table> const alike(new Table(*t)); // another handle to the same data
    for (Operation const& each : operations()) {
        SCOPED_TRACE(each.name);
        if (refusesItself(each)) {
            Ptr<Table> result = alike;
            EXPECT_EQ(raised([&] { (void)each.run(*t, brief("A 2"), result); }),
                      "Result table cannot be same as 'this' table");
            EXPECT_EQ(result.get(), alike.get());
            result = brief("A 1");
            EXPECT_EQ(raised([&] { (void)each.run(*t, brief("A 2"), result); }), "");
        }
    }
    EXPECT_EQ(brief(*t), "A 1");
}

TEST(TableOperations, ShareNestedTables) {
    for (Operation const& each : operations()) {
        std::string const name = each.name;
        if (name == "overlay" || name == "operation" || name == "makeTemplate" || name == "fill") {
            continue; // these put others there
        }
        SCOPED_TRACE(name);
        Ptr<Table> const left = brief(leftForm);
        Ptr<Table> const inner = nested(left->get(0, 2));
        Ptr<Table> result;
        (void)each.run(*left, brief(name == "select inverted" ? "B" : each.operand), result);
        bool found = false;
        for (std::size_t i = 0; i < result->indices(); ++i) {
            for (std::size_t j = 0; j < length(*result, i); ++j) {
                found = found || nested(result->get(i, j)).get() == inner.get();
            }
        }
        EXPECT_EQ(found, name != "merge by name" && name != "filter twice");
    }
}

TEST(TableOperations, TakeATableWithoutDataAsAnEmptyOne) {
    Table const without{Ptr<TableImplementation>()};
    Ptr<Table> const operand(new Table(without));
    for (Operation const& each : operations()) {
        SCOPED_TRACE(each.name);
        std::string const forms[] = {each.operand, ""};
        for (std::string const& form : forms) {
            Ptr<Table> result;
            Ptr<Table> expected;
            std::string done[2];
            std::string const failures[] = {
                raised([&] { done[0] = outcome(each.run(without, brief(form), result)); }),
                raised([&] { done[1] = outcome(each.run(Table(), brief(form), expected)); })};
            EXPECT_EQ(failures[0] + done[0] + named(result), failures[1] + done[1] + named(expected));
        }
        Ptr<Table> result;
        Ptr<Table> expected;
        std::string const left = "A 1 | B";
        std::string const failures[] = {
            raised([&] { (void)each.run(*brief(left), operand, result); }),
            raised([&] { (void)each.run(*brief(left), table(""), expected); })};
        EXPECT_EQ(failures[0] + named(result), failures[1] + named(expected));
    }
    EXPECT_EQ(shown(without), "Null table\n");
}

// A walk along all names for each name would take many times as long.
TEST(TableOperations, FindManyNamesInLinearTime) {
    constexpr std::size_t many = 60000;
    Ptr<Table> const left = table("t");
    Ptr<Table> const right = table("u");
    Ptr<Table> const names = table("v");
    for (std::size_t i = 0; i < many; ++i) {
        left->at(i, 1) = Cell(1);
        left->at(i, 0) = Cell(Str("index " + std::to_string(i)));
        right->at(i, 1) = Cell(2);
        right->at(i, 0) = Cell(Str("index " + std::to_string(many + many / 2 - i)));
        names->at(i, 0) = right->get(i, 0);
    }
    for (Operation const& each : operations()) {
        std::string const name = each.name;
        if (name.find("filter") == 0 || name == "sort" || name == "operation") {
            continue; // these look up few names
        }
        SCOPED_TRACE(name);
        Ptr<Table> result;
        auto const start = std::chrono::steady_clock::now();
        (void)each.run(*left, name.find("select") == 0 ? names : right, result);
        ASSERT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    }
}

} // namespace
} // namespace QX
