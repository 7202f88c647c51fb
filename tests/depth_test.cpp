#include "brief.h"

namespace QX {
namespace {

// Deeper than any stack could take a call for each level.
constexpr int levels = 500'000;

TEST(Depth, ChainsOfTablesAreBuiltCheckedReadAndReleased) {
    Ptr<Table> chain = brief("a 7");
    std::string path;
    for (int i = 0; i < levels; ++i) {
        Ptr<Table> const outer = brief("");
        outer->at("a", 1) = Cell(chain);
        chain = outer;
        path += "a/";
    }
    EXPECT_TRUE(chain->check());
    EXPECT_EQ(text(chain->atXPath(Str(path + "a"), Cell())), "7");
}

TEST(Depth, PathsMakeChainsOfTables) {
    std::string path;
    for (int i = 0; i < levels; ++i) {
        path += "step/";
    }
    Table attributed;
    attributed.setAttribute(Str(path + "end"), Cell(7));
    Cell value;
    attributed.getAttribute(Str(path + "end"), value);
    EXPECT_EQ(text(value), "7");
}

} // namespace
} // namespace QX
