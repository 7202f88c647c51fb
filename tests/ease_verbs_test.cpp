// The operations that take names and return tables.

#include "briefform.h"

#include <qx/ease.h>

#include <functional>

namespace QX {
namespace {

/// What a call gives, or the message of the failure that it raises.
std::string told(std::function<Ptr<Table>()> const& call) {
    try {
        return brief(*call());
    } catch (Failure const& failure) {
        return failure.what();
    } catch (Except const& except) {
        return "raises " + outcome(except.report());
    }
}

Ptr<Table> const table = brief("k b a b - a | n 2 1 nan 2 1 | s x y", "t");
Ptr<Table> const right = brief("k a - b a c | v 1 2 3 4 5 | n 9 9 9 9 9", "r");
Ptr<Table> const nothing = brief("", "none");

struct Case {
    char const* name;
    std::function<Ptr<Table>()> call;
    char const* expected;
};

void check(std::vector<Case> const& cases) {
    std::string const before = brief(*table) + brief(*right);
    for (Case const& each : cases) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(told(each.call), each.expected);
    }
    EXPECT_EQ(brief(*table) + brief(*right), before);
}

TEST(EaseVerbs, OrderRows) {
    check({
        {"one key", [] { return sorted(table, "k"); }, "k - a a b b | n 2 1 1 2 nan | s - y - x -"},
        {"two keys",
         [] {
             return sorted(table, {"k", "n"});
         },
         "k - a a b b | n 2 1 1 2 nan | s - y - x -"},
        {"descending", [] { return sorted(table, descending("k")); },
         "k b b a a - | n 2 nan 1 1 2 | s x - y - -"},
        {"both ways",
         [] {
             return sorted(table, {"k", descending("n")});
         },
         "k - a a b b | n 2 1 1 nan 2 | s - y - - x"},
        {"no key", [] { return sorted(table, {}); }, "k b a b - a | n 2 1 nan 2 1 | s x y - - -"},
        {"unknown",
         [] {
             return sorted(table, {"k", "m"});
         },
         "No index 'm' in 't', did you mean 'k'?"},
        {"nothing", [] { return sorted(nothing, {}); }, ""},
        {"null", [] { return sorted(Ptr<Table>(), "k"); }, "No table provided"},
    });
}

TEST(EaseVerbs, ChooseRows) {
    auto const small = [](Ease::Row row) { return valueOr(row["n"], 9.0) < 2; };
    check({
        {"value", [] { return where(table, "k", "b"); }, "k b b | n 2 nan | s x -"},
        {"values, in the table's order",
         [] {
             return where(table, "k", {"b", "z", "a", "b"});
         },
         "k b a b a | n 2 1 nan 1 | s x y - -"},
        {"empty", [] { return where(table, "k", std::nullopt); }, "k - | n 2 | s -"},
        {"number",
         [] {
             return where(table, "n", {2, std::nan("")});
         },
         "k b b - | n 2 nan 2 | s x - -"},
        {"text of a number", [] { return where(table, "n", "2"); }, "k b - | n 2 2 | s x -"},
        {"text kept as it is",
         [] {
             return where(tableOf("z", {{"zip", {textCell("00501"), 501, textCell("7")}}}), "zip",
                          {"00501"});
         },
         "zip 00501 501"},
        {"container", [] { return where(table, "n", std::vector<int>{1}); }, "k a a | n 1 1 | s y -"},
        {"none", [] { return where(table, "k", {}); }, "k | n | s"},
        {"not",
         [] {
             return whereNot(table, "k", {"b", ""});
         },
         "k a a | n 1 1 | s y -"},
        {"predicate", [=] { return where(table, small); }, "k a a | n 1 1 | s y -"},
        {"unknown", [] { return where(table, "kind", "b"); },
         "No index 'kind' in 't', which has 'k', 'n', 's'"},
        {"distinct by one", [] { return distinct(table, "k"); }, "k b a - | n 2 1 2 | s x y -"},
        {"distinct by two",
         [] {
             return distinct(table, {"k", "n"});
         },
         "k b a b - | n 2 1 nan 2 | s x y - -"},
        {"distinct", [] { return distinct(brief("A A x x | B B y y")); }, "A A x | B B y"},
        {"without",
         [] {
             return without(table, {5, 1, 1});
         },
         "k a b - | n 1 nan 2 | s y - -"},
        {"without too many", [] { return without(table, {6}); }, "No row 6 in 't', which has 5"},
        {"without names", [] { return without(table, {0}); }, "No row 0 in 't', which has 5"},
        {"head", [] { return head(table, 2); }, "k b a | n 2 1 | s x y"},
        {"head of few", [] { return head(table, 9); }, "k b a b - a | n 2 1 nan 2 1 | s x y - - -"},
        {"tail", [] { return tail(table, 1); }, "k a | n 1 | s -"},
        {"tail of nothing", [] { return tail(nothing); }, ""},
    });
}

TEST(EaseVerbs, ChooseIndices) {
    check({
        {"selected",
         [] {
             return selected(table, {"s", "k"});
         },
         "s x y - - - | k b a b - a"},
        {"selected twice",
         [] {
             return selected(table, {"k", "k"});
         },
         "k b a b - a | k b a b - a"},
        {"unknown",
         [] {
             return selected(table, {"k", "q"});
         },
         "No index 'q' in 't', did you mean 'k'?"},
        {"without",
         [] {
             return withoutIndices(table, {"n", "k"});
         },
         "s x y - - -"},
        {"renamed",
         [] {
             return renamed(selected(table, {"k", "s"}), {{"k", "s"}, {"s", 7}});
         },
         "s b a b - a | 7 x y - - -"},
        {"values",
         [] {
             return withIndex(selected(table, "s"), "m", {1, "z"});
         },
         "s x y - - - | m 1 z"},
        {"replaced", [] { return withIndex(right, "k", {}); }, "k | v 1 2 3 4 5 | n 9 9 9 9 9"},
        {"computed",
         [] {
             return withIndex(right, "v",
                              [](Ease::Row row) { return row.number() + valueOr(row[1], 0U); });
         },
         "k a - b a c | v 2 4 6 8 10 | n 9 9 9 9 9"},
    });
}

TEST(EaseVerbs, JoinRows) {
    check({
        {"inner", [] { return joined(table, right, {"k"}); },
         "k b a a b - a a | n 2 1 1 nan 2 1 1 | s x y y - - - - | v 3 1 4 3 2 1 4 | r.n 9 9 9 9 9 9 9"},
        {"left", [] { return joined(head(table, 2), head(right, 1), {"k"}, Join::Left); },
         "k b a | n 2 1 | s x y | v - 1 | r.n - 9"},
        {"full",
         [] {
             return joined(head(table, 2), selected(right, {"v", "k"}), {"k"}, Join::Full);
         },
         "k b a a - c | n 2 1 1 - - | s x y y - - | v 3 1 4 2 5"},
        {"semi", [] { return joined(table, head(right, 1), {"k"}, Join::Semi); },
         "k a a | n 1 1 | s y -"},
        {"anti", [] { return joined(table, head(right, 2), {"k"}, Join::Anti); },
         "k b b | n 2 nan | s x -"},
        {"names differ", [] { return joined(head(table, 2), right, {"n"}, {"v"}); },
         "k b a | n 2 1 | s x y | r.k - a | r.n 9 9"},
        {"two keys",
         [] {
             return joined(table, renamed(right, {{"n", "s"}}), {"n", "k"}, {"v", "k"});
         },
         "k a - a | n 1 2 1 | s y - - | r.s 9 9 9"},
        {"no right row", [] { return joined(table, head(right, 0), {"k"}, Join::Anti); },
         "k b a b - a | n 2 1 nan 2 1 | s x y - - -"},
        {"numbers of keys differ",
         [] {
             return joined(table, right, {"k"}, {"k", "v"});
         },
         "raises Left and right keys differ in number"},
        {"unknown", [] { return joined(table, right, {"s"}); },
         "No index 's' in 'r', did you mean 'k'?"},
        {"taken", [] { return joined(brief("k 1 | n 2 | r.n 3"), right, {"k"}); },
         "Both tables have an index 'n', and there is a 'r.n': rename one of them"},
    });
    EXPECT_EQ(string(joined(table, right, "k")->name()), "t and r");
    EXPECT_EQ(string(joined(table, right, "k", Join::Semi)->name()), "t");
}

TEST(EaseVerbs, GroupRows) {
    Ptr<Table> const dirty = brief("k a a | n 1 ?");
    check({
        {"sums",
         [] {
             return grouped(right, {"k"}, {sum("v"), mean("v"), count()});
         },
         "k a - b c | sum(v) 5 2 3 5 | mean(v) 2.5 2 3 5 | count 2 1 1 1"},
        {"values",
         [] {
             return grouped(table, {"k"}, {min("n"), max("n"), first("s"), last("s"), count("s")});
         },
         "k b a - | min(n) 2 1 2 | max(n) nan 1 2 | first(s) x y - | last(s) - - - | count(s) 1 1 0"},
        {"different values",
         [] {
             return grouped(table, {"k"}, {countDistinct("n"), countDistinct("s")});
         },
         "k b a - | countDistinct(n) 2 1 1 | countDistinct(s) 1 1 0"},
        {"two keys, one name",
         [] {
             return grouped(table, {"n", "k"}, {count().named("rows")});
         },
         "n 2 1 nan 2 | k b a b - | rows 1 2 1 1"},
        {"no key",
         [] {
             return grouped(right, {}, {sum("v"), first("k"), last("k")});
         },
         "sum(v) 15 | first(k) a | last(k) c"},
        {"no key, no row",
         [] {
             return grouped(head(right, 0), {}, {sum("v"), mean("v"), count(), max("v")});
         },
         "sum(v) 0 | mean(v) - | count 0 | max(v) -"},
        {"no row", [] { return grouped(head(right, 0), {"k"}, {sum("v")}); }, "k | sum(v)"},
        {"nothing computed", [] { return grouped(table, {"k"}, {}); }, "k b a -"},
        {"not valid counts as empty",
         [=] {
             return grouped(dirty, {"k"}, {sum("n"), mean("n"), count("n")});
         },
         "k a | sum(n) 1 | mean(n) 1 | count(n) 1"},
        {"texts", [] { return grouped(table, {"n"}, {sum("s")}); },
         "'s' in row 1 holds no such value: 'x'"},
        {"unknown", [] { return grouped(table, {"k"}, {sum("m")}); },
         "No index 'm' in 't', did you mean 'k'?"},
    });
}

TEST(EaseVerbs, CombineTables) {
    Ptr<Table> const left = brief("a 1 2 | b 3", "l");
    Ptr<Table> const over = brief("a - 9 7 | c 5", "o");
    check({
        {"merged", [=] { return merged(left, over); }, "a - 9 7 | b 3 - | c 5 - -"},
        {"appended", [=] { return appended(left, over); }, "a 1 2 - 9 7 | b 3 - | c - - 5 - -"},
        {"overlaid", [=] { return overlaid(*left, over); }, "a 1 9 7 | b 3 - | c 5"},
        {"differences", [=] { return differences(left, brief("a 1 3 | b 3")); },
         "Xpath /a[2] | Left 2 | Right 3"},
        {"transposed", [=] { return transposed(left); }, "a b | 1 3 | 2 -"},
        {"null", [=] { return overlaid(left, Ptr<Table const>()); }, "No table provided"},
    });
}

TEST(EaseVerbs, Chain) {
    check({
        {"rows and indices",
         [] {
             return from(table)
                 .where("k", {"a", "b"})
                 .sorted({"k", descending("n")})
                 .without({1})
                 .selected("n")
                 .table();
         },
         "n 1 nan 2"},
        {"grouped, joined, computed",
         [] {
             return from(*right)
                 .grouped({"k"}, {sum("v").named("v")})
                 .joined(distinct(table, "k"), {"k"})
                 .where([](Ease::Row row) { return valueOr(row["v"], 0) > 2; })
                 .withIndex("w", [](Ease::Row row) { return 2 * valueOr(row["v"], 0); })
                 .renamed({{"w", "double"}})
                 .withoutIndices("s")
                 .table();
         },
         "k a b | v 5 3 | n 1 2 | double 10 6"},
        {"combined",
         [] {
             return from(brief("a 1"))
                 .appended(brief("a 2"))
                 .merged(brief("b 3"))
                 .overlaid(brief("a - 7"))
                 .transposed()
                 .head(1)
                 .distinct()
                 .tail()
                 .table();
         },
         "a b | 1 3 | 7 -"},
        {"failure", [] { return from(table).head(2).sorted("q").table(); },
         "No index 'q' in 't', did you mean 'k'?"},
    });
}

TEST(EaseVerbs, ShareCells) {
    Ptr<Table> const inner(new Table("inner"));
    Ptr<Table> const outer = tableOf("outer", {{"k", {2, 1}}, {"t", {inner, std::string(99, 'x')}}});
    for (Ptr<Table> const& result : {sorted(outer, "k"), where(outer, "k", 2), joined(outer, outer, "k"),
                                     selected(outer, {"k", "t"}), grouped(outer, {"k"}, {first("t")}),
                                     withIndex(outer, "n", {1})}) {
        bool shared = false;
        for (NestedTable const& found : nestedTables(result)) {
            shared = shared || found.table == inner;
        }
        EXPECT_TRUE(shared);
        EXPECT_EQ(result->getAttributes()->indices(), 0U);
    }
}

} // namespace
} // namespace QX
