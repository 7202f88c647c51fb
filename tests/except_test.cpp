#include "support.h"

#include <memory>

namespace QX {
namespace {

std::string print(Except const& e) {
    return written([&](std::ostream& os) { os << e; });
}

TEST(Except, PrintsTheInnermostFirstAndCopiesTheOutermost) {
    auto const report = [](char const* message, int line) {
        return Report(Status(message, Status::Error, -1), "file", line);
    };
    auto inner = std::make_unique<Except>(report("first", 1));
    inner = std::make_unique<Except>(report("second", 2), std::move(inner));
    Except const source(report("third", 3), std::move(inner));
    EXPECT_EQ(print(source), "file(1): first\nfile(2): second\nfile(3): third\n");
    EXPECT_EQ(source.inner()->report().line(), 2);
    try {
        throw Except(source);
    } catch (std::exception const& e) {
        auto const* const caught = dynamic_cast<Except const*>(&e);
        ASSERT_NE(caught, nullptr);
        EXPECT_EQ(caught->inner(), nullptr);
        EXPECT_EQ(print(*caught), "file(3): third\n");
    }
    EXPECT_NE(source.inner(), nullptr);
}

TEST(Except, ChainsHaveAnyLength) {
    int const length = 300000;
    std::unique_ptr<Except> chain;
    std::string expected;
    for (int line = 1; line <= length; ++line) {
        chain = std::make_unique<Except>(Report(Status(), "f", line), std::move(chain));
        expected += "f(" + std::to_string(line) + "): \n";
    }
    EXPECT_TRUE(print(*chain) == expected);
}

} // namespace
} // namespace QX
