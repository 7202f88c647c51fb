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

} // namespace
} // namespace QX
