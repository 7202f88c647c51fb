#include "support.h"

#include <limits>

namespace QX {
namespace {

std::string described(LibraryBase const& library) {
    return string(library.name()) + ", " + string(library.interfaces()) +
           string(Str::asString(library.version()));
}

TEST(LibraryBase, DescribesALibrary) {
    LibraryBase library = 7;
    EXPECT_EQ(described(library), ", 7 0");
    EXPECT_TRUE(library.checkInterface(7));
    EXPECT_FALSE(library.checkInterface(8));
    library.name("rates");
    library.version(1.5);
    LibraryBase target(5);
    target = library;
    LibraryBase const copy(library);
    library.name("changed");
    EXPECT_EQ(described(target), "rates, 7 1.5");
    EXPECT_EQ(described(copy), "rates, 7 1.5");
    EXPECT_EQ(described(LibraryBase(std::numeric_limits<int>::min())), ", -2147483648 0");
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

std::string both(Moniker const& moniker) {
    return string(moniker.name()) + " " + string(moniker.moniker());
}

TEST(Moniker, CarriesAName) {
    EXPECT_EQ(both(Moniker()), " ");
    Moniker moniker("first");
    EXPECT_EQ(both(moniker), "first first");
    EXPECT_EQ(string(moniker.create("second")), "second");
    EXPECT_EQ(both(moniker), "second second");
    EXPECT_TRUE(moniker.checkMoniker(Str()));
}

TEST(Moniker, LetsADerivedClassDecide) {
    Tagged tagged("first");
    Moniker& moniker = tagged;
    EXPECT_EQ(string(moniker.create("second")), "<second>");
    EXPECT_EQ(both(moniker), "<second> <second>");
    EXPECT_FALSE(moniker.checkMoniker(Str()));
    tagged.set("third", "other");
    EXPECT_EQ(both(moniker), "<third> other");
    EXPECT_EQ(both(Moniker(moniker)), "third other");
}

} // namespace
} // namespace QX
