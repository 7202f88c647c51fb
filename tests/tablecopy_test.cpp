#include "brief.h"

namespace QX {
namespace {

/// A table of one index that holds the given tables.
Ptr<Table> holding(std::initializer_list<Ptr<Table>> tables) {
    Ptr<Table> made(new Table("t"));
    for (Ptr<Table> const& each : tables) {
        made->at(made->indices() == 0 ? Table::npos : 0, Table::npos) = Cell(each);
    }
    return made;
}

TEST(TableClone, IsDeepAndRectangular) {
    Ptr<Table> const t = brief("| A | B 1 two !e {n x 1 }");
    Ptr<Table> const inner = nested(t->get(2, 4));
    inner->getAttributes()->at("unit", 1, Cell("eur"));
    Ptr<Table> const copy = t->clone();
    EXPECT_EQ(named(copy), "t: - - - - - | A - - - - | B 1 two !e {n x 1 }");
    EXPECT_EQ(brief(*nested(copy->get(2, 4))->getAttributes()), "unit eur");
    nested(copy->get(2, 4))->at("x", 1, Cell(2));
    nested(copy->get(2, 4))->getAttributes()->at("unit", 1, Cell("usd"));
    copy->at("A", 1, Cell(3));
    EXPECT_EQ(brief(*t), "| A | B 1 two !e {n x 1 }");
    EXPECT_EQ(brief(*inner->getAttributes()), "unit eur");
}

TEST(TableClone, CopiesATableHeldTwiceTwice) {
    Ptr<Table> const inner = brief("");
    Ptr<Table> const copy = holding({inner, inner})->clone();
    EXPECT_NE(nested(copy->get(0, 0)).get(), nested(copy->get(0, 1)).get());
}

TEST(TableClone, CopiesAttributesWithWhatTheyHold) {
    Ptr<Table> const t = brief("");
    t->getAttributes()->at("deep", 1, Cell(brief("x 1")));
    Ptr<Table> const copy = t->clone();
    nested(copy->getAttributes()->get("deep", 1))->at("x", 1, Cell(2));
    EXPECT_EQ(brief(*t->getAttributes()), "deep {t x 1 }");
}

TEST(TableCheck, FindsATableInItself) {
    Ptr<Table> const direct = brief("A 1");
    EXPECT_TRUE(direct->check());
    direct->at(0, 2, Cell(direct));
    EXPECT_FALSE(direct->check());
    direct->at(0, 2, Cell());
    EXPECT_TRUE(direct->check());

    Ptr<Table> const inner = brief("1");
    Ptr<Table> const outer = holding({brief(""), inner});
    inner->at(3, 3, Cell(Ptr<Table>(new Table(*outer)))); // another handle of the same body
    EXPECT_FALSE(outer->check());
    EXPECT_FALSE(inner->check());
    EXPECT_FALSE(holding({outer})->check());
    inner->at(3, 3, Cell());
    EXPECT_TRUE(outer->check());
}

TEST(TableCheck, AllowsSharingAtOneDepth) {
    Ptr<Table> const leaf = brief("1");
    Ptr<Table> const a = holding({leaf});
    EXPECT_TRUE(holding({a, holding({leaf, leaf})})->check());
    EXPECT_TRUE(holding({a, leaf})->check()) << "deep, then shallow";
    EXPECT_FALSE(holding({leaf, a})->check()) << "shallow, then deep";
    Ptr<Table> const nextIndex = holding({leaf});
    nextIndex->at(1, 1) = Cell(a);
    EXPECT_FALSE(nextIndex->check());
    Ptr<Table> const indexBeforeItem = holding({brief(""), a});
    indexBeforeItem->at(1, 0) = Cell(leaf);
    EXPECT_TRUE(indexBeforeItem->check());
    Ptr<Table> const bodiless(new Table(Ptr<TableImplementation>()));
    EXPECT_TRUE(holding({bodiless, holding({bodiless})})->check());
}

TEST(TableCheck, LooksAtDataOnly) {
    Ptr<Table> const t = brief("");
    t->getAttributes()->at(0, 0, Cell(t));
    EXPECT_TRUE(t->check());
    t->getAttributes()->at(0, 0, Cell());
}

TEST(TableCheck, WalksEachBodyOnce) {
    Ptr<Table> top = brief("1");
    for (int level = 0; level < 60; ++level) {
        top = holding({top, top});
    }
    EXPECT_TRUE(top->check()); // 2 to the 60 paths
}

TEST(TableAlias, IsNotProvided) {
    Ptr<Table> result = brief("", "kept");
    EXPECT_EQ(outcome(Table("t").alias(brief(""), result)), "Not Implemented");
    EXPECT_EQ(named(result), "kept: ");
}

TEST(TableIdentity, IsThatOfTheHandle) {
    Ptr<Table> const t = brief("");
    EXPECT_TRUE(*t == Ptr<Table>(t));
    EXPECT_FALSE(*t == Ptr<Table>(new Table(*t)));
    EXPECT_FALSE(*t == Ptr<Table>());
}

TEST(TableAttributes, AreSharedByEveryHandleOfThem) {
    Table t("t");
    Ptr<Table> const first = t.getAttributes();
    EXPECT_NE(first.get(), t.getAttributes().get());
    first->at("unit", 1, Cell("eur"));
    EXPECT_EQ(first->getAttributes()->indices(), 0U) << "attributes have empty attributes of their own";
    Table const copy(t);
    EXPECT_EQ(brief(*copy.getAttributes()), "unit eur");
    EXPECT_EQ(t.indices(), 0U);

    Ptr<Table> const others = brief("unit usd");
    t.setAttributes(others);
    others->at("unit", 1, Cell("gbp"));
    EXPECT_EQ(brief(*t.getAttributes()), "unit gbp");
    EXPECT_EQ(brief(*copy.getAttributes()), "unit eur");
    t.setAttributes(Ptr<Table>());
    EXPECT_EQ(named(t.getAttributes()), ": ");
    EXPECT_EQ(others->indices(), 1U);
}

TEST(TableAttributes, AreSharedByHandlesCopiedBeforeAnyWereSet) {
    Table t("t");
    Table const copy(t);
    Table const copyOfCopy(copy);
    Table assigned("assigned");
    assigned = copyOfCopy;
    Table const clone(*assigned.clone());
    (void)assigned.setAttribute("unit", Cell("eur"));
    Table const* const handles[] = {&t, &copy, &copyOfCopy, &assigned};
    for (Table const* const handle : handles) {
        EXPECT_EQ(named(handle->getAttributes()), ": unit eur");
    }
    EXPECT_EQ(named(clone.getAttributes()), ": ");

    t.setAttributes(Ptr<Table>());
    Table const later(t);
    Cell all;
    (void)later.getAttribute("", all);
    nested(all)->at("unit", 1, Cell("usd"));
    EXPECT_EQ(named(t.getAttributes()), ": unit usd");
    EXPECT_EQ(named(copy.getAttributes()), ": unit eur");
}

} // namespace
} // namespace QX
