#include "support.h"

namespace QX {
namespace {

TEST(TableClone, IsDeepAndRectangular) {
    Ptr<Table> const inner = table("inner", {{"x", 1}});
    inner->getAttributes()->at("unit", 1, Cell("eur"));
    Ptr<Table> const t = table("t", {{}, {"A"}, {"B", 1, "two", Status("e", Status::Error, -1), inner}});
    std::string const before = shown(*t);
    Ptr<Table> const copy = t->clone();
    EXPECT_EQ(shown(*copy), "Table - 0\nIndex 0 <x> 1 \nTable - t\n"
                            "Index 0 <[Empty]> [Empty] [Empty] [Empty] [Empty] \n"
                            "      1 <A> [Empty] [Empty] [Empty] [Empty] \n"
                            "      2 <B> 1 two  `Table 0' \n");
    EXPECT_EQ(text(copy->get(2, 3)), "#Err: e");
    EXPECT_EQ(text(nested(copy->get(2, 4))->getAttributes()->get("unit", 1)), "eur");
    nested(copy->get(2, 4))->at("x", 1, Cell(2));
    nested(copy->get(2, 4))->getAttributes()->at("unit", 1, Cell("usd"));
    copy->at("A", 1, Cell(3));
    EXPECT_EQ(shown(*t), before);
    EXPECT_EQ(text(inner->getAttributes()->get("unit", 1)), "eur");
}

TEST(TableClone, ATableWithoutItemsHasNoIndices) {
    EXPECT_EQ(shown(*table("t")->clone()), "Table - t\n");
}

TEST(TableClone, CopiesATableHeldTwiceTwice) {
    Ptr<Table> const inner = table("inner");
    Ptr<Table> const copy = table("t", {{inner, inner}})->clone();
    EXPECT_NE(nested(copy->get(0, 0)).get(), nested(copy->get(0, 1)).get());
    EXPECT_NE(nested(copy->get(0, 0)).get(), inner.get());
}

TEST(TableClone, CopiesAttributesWithWhatTheyHold) {
    Ptr<Table> const t = table("t");
    t->getAttributes()->at("deep", 1, Cell(table("inner", {{"x", 1}})));
    Ptr<Table> const copy = t->clone();
    nested(copy->getAttributes()->get("deep", 1))->at("x", 1, Cell(2));
    EXPECT_EQ(text(nested(t->getAttributes()->get("deep", 1))->get("x", 1)), "1");
}

TEST(TableCheck, FindsATableInItself) {
    Ptr<Table> const direct = table("t", {{"A", 1}});
    EXPECT_TRUE(direct->check());
    direct->at(0, 2, Cell(direct));
    EXPECT_FALSE(direct->check());
    direct->at(0, 2, Cell());
    EXPECT_TRUE(direct->check());

    Ptr<Table> const inner = table("inner", {{1}});
    Ptr<Table> const outer = table("outer", {{}, {"A", table("other"), inner}});
    inner->at(3, 3, Cell(Ptr<Table>(new Table(*outer)))); // another handle of the same body
    EXPECT_FALSE(outer->check());
    EXPECT_FALSE(inner->check());
    EXPECT_FALSE(table("above", {{outer}})->check());
    inner->at(3, 3, Cell());
    EXPECT_TRUE(outer->check());
}

TEST(TableCheck, AllowsSharingAtOneDepth) {
    Ptr<Table> const leaf = table("leaf", {{1}});
    Ptr<Table> const a = table("a", {{leaf}});
    Ptr<Table> const b = table("b", {{leaf, leaf}});
    EXPECT_TRUE(table("diamond", {{a, b}})->check());
    EXPECT_TRUE(table("deep, then shallow", {{a, leaf}})->check());
    EXPECT_FALSE(table("shallow, then deep", {{leaf, a}})->check());
    EXPECT_FALSE(table("in the next index", {{leaf}, {1, a}})->check());
    EXPECT_TRUE(table("index before item", {{1, a}, {leaf}})->check());
    Ptr<Table> const bodiless(new Table(Ptr<TableImplementation>()));
    EXPECT_TRUE(table("no body", {{bodiless, table("x", {{bodiless}})}})->check());
}

TEST(TableCheck, LooksAtDataOnly) {
    Ptr<Table> const t = table("t");
    t->getAttributes()->at(0, 0, Cell(t));
    EXPECT_TRUE(t->check());
    EXPECT_FALSE(table("above", {{t->getAttributes(), table("x", {{t->getAttributes()}})}})->check());
    t->getAttributes()->at(0, 0, Cell());
}

TEST(TableCheck, WalksEachBodyOnce) {
    Ptr<Table> top = table("bottom", {{1}});
    for (int level = 0; level < 60; ++level) {
        top = table("level", {{top, top}});
    }
    EXPECT_TRUE(top->check()); // 2 to the 60 paths
}

TEST(TableAlias, IsNotProvided) {
    Ptr<Table> result = table("kept");
    EXPECT_EQ(outcome(Table("t").alias(table("other"), result)), "Not Implemented");
    EXPECT_EQ(string(result->name()), "kept");
}

TEST(TableIdentity, IsThatOfTheHandle) {
    Ptr<Table> const t = table("t");
    EXPECT_TRUE(*t == t);
    EXPECT_TRUE(*t == Ptr<Table>(t));
    EXPECT_FALSE(*t == Ptr<Table>(new Table(*t)));
    EXPECT_FALSE(*t == Ptr<Table>());
    EXPECT_EQ(t.useCount(), 1U);
}

TEST(TableAttributes, AreSharedByEveryHandleOfThem) {
    Table t("t");
    Ptr<Table> const first = t.getAttributes();
    Ptr<Table> const second = t.getAttributes();
    EXPECT_NE(first.get(), second.get());
    first->at("unit", 1, Cell("eur"));
    EXPECT_EQ(text(second->get("unit", 1)), "eur");
    EXPECT_EQ(first->getAttributes()->indices(), 0U) << "attributes have empty attributes of their own";
    Table const copy(t);
    EXPECT_EQ(text(copy.getAttributes()->get("unit", 1)), "eur");
    EXPECT_EQ(t.indices(), 0U);

    Ptr<Table> const others = table("others", {{"unit", "usd"}});
    t.setAttributes(others);
    others->at("unit", 1, Cell("gbp"));
    EXPECT_EQ(text(t.getAttributes()->get("unit", 1)), "gbp");
    EXPECT_EQ(text(copy.getAttributes()->get("unit", 1)), "eur");
    t.setAttributes(Ptr<Table>());
    EXPECT_EQ(shown(*t.getAttributes()), "Table - \n");
    EXPECT_EQ(others->indices(), 1U);
}

} // namespace
} // namespace QX
