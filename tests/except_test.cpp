#include "support.h"

#include <exception>
#include <memory>
#include <type_traits>

namespace QX {
namespace {

static_assert(std::is_base_of_v<std::exception, Except>);

Report report(char const* message, int line) {
    return Report(Status(message, Status::Error, -1), "file", line);
}

std::string print(Except const& e) {
    return written([&](std::ostream& os) { EXPECT_EQ(&(os << e), &os); });
}

std::unique_ptr<Except> chain() {
    auto first = std::make_unique<Except>(report("first", 1));
    auto second = std::make_unique<Except>(report("second", 2), std::move(first));
    return std::make_unique<Except>(report("third", 3), std::move(second));
}

TEST(Except, PrintsItsReport) {
    Report const r = report("message", 7);
    EXPECT_EQ(print(Except(r)), written([&](std::ostream& os) { r.display(os); }));
    EXPECT_EQ(print(Except(r)), "file(7): message\n");
    EXPECT_EQ(Except(r).inner(), nullptr);
}

TEST(Except, PrintsTheInnermostFirst) {
    EXPECT_EQ(print(*chain()), "file(1): first\nfile(2): second\nfile(3): third\n");
}

TEST(Except, ACopyLeavesTheInnerOneBehind) {
    std::unique_ptr<Except> const source = chain();
    Except const copy(*source);
    EXPECT_EQ(copy.inner(), nullptr);
    EXPECT_EQ(print(copy), "file(3): third\n");
    ASSERT_NE(source->inner(), nullptr);
    EXPECT_EQ(source->inner()->report().line(), 2);
}

TEST(Except, IsCaughtAsAStandardException) {
    try {
        throw Except(report("message", 7));
    } catch (std::exception const& e) {
        EXPECT_STREQ(e.what(), std::exception().what());
        ASSERT_NE(dynamic_cast<Except const*>(&e), nullptr);
        Report const& caught = dynamic_cast<Except const&>(e).report();
        EXPECT_EQ(outcome(caught), "message");
        EXPECT_EQ(string(caught.file()), "file");
        EXPECT_EQ(caught.line(), 7);
    }
}

} // namespace
} // namespace QX
