#include "qx/library.h"

#include <gtest/gtest.h>

#include <climits>

using QX::LibraryBase;
using QX::Moniker;
using QX::Str;

namespace {

TEST(LibraryBase, DescribesALibrary) {
    LibraryBase library(7);
    EXPECT_TRUE(library.name().empty());
    EXPECT_EQ(library.version(), 0.0);
    EXPECT_TRUE(library.checkInterface(7));
    EXPECT_FALSE(library.checkInterface(8));
    EXPECT_STREQ(library.interfaces().get(), "7 ");
    library.name("rates");
    library.version(1.5);
    EXPECT_STREQ(library.name().get(), "rates");
    EXPECT_EQ(library.version(), 1.5);
    EXPECT_STREQ(LibraryBase(INT_MIN).interfaces().get(), "-2147483648 ");
    EXPECT_STREQ(LibraryBase(1'000'000).interfaces().get(), "1000000 ");
}

TEST(LibraryBase, CopiesEverything) {
    LibraryBase source(3);
    source.name("source");
    source.version(2.25);
    LibraryBase target(5);
    target = source;
    LibraryBase const copy(source);
    source.name("changed");
    for (LibraryBase const* library : {&copy, static_cast<LibraryBase const*>(&target)}) {
        EXPECT_STREQ(library->interfaces().get(), "3 ");
        EXPECT_STREQ(library->name().get(), "source");
        EXPECT_EQ(library->version(), 2.25);
    }
}

/// Shows what a derived class can reach and decide.
class Tagged : public Moniker {
public:
    using Moniker::Moniker;
    Str name() const override { return Str("<") + Moniker::name() + ">"; }
    bool checkMoniker(Str const& text) const override { return !text.empty(); }
    void set(Str const& text, Str const& other) {
        Moniker::name(text);
        moniker(other);
    }
};

TEST(Moniker, CarriesAName) {
    EXPECT_TRUE(Moniker().moniker().empty());
    Moniker moniker("first");
    EXPECT_STREQ(moniker.name().get(), "first");
    EXPECT_STREQ(moniker.create("second").get(), "second");
    EXPECT_STREQ(moniker.name().get(), "second");
    EXPECT_STREQ(moniker.moniker().get(), "second");
    EXPECT_TRUE(moniker.checkMoniker(Str()));
}

TEST(Moniker, LetsADerivedClassDecide) {
    Tagged tagged("first");
    Moniker& moniker = tagged;
    EXPECT_STREQ(moniker.create("second").get(), "<second>");
    EXPECT_STREQ(moniker.moniker().get(), "<second>");
    EXPECT_FALSE(moniker.checkMoniker(Str()));
    tagged.set("third", "other");
    EXPECT_STREQ(moniker.name().get(), "<third>");
    EXPECT_STREQ(moniker.moniker().get(), "other");
    Moniker const copy(moniker);
    tagged.set("fourth", Str());
    EXPECT_STREQ(moniker.moniker().get(), "<fourth>");
    EXPECT_STREQ(copy.name().get(), "third");
    EXPECT_STREQ(copy.moniker().get(), "other");
}

} // namespace
