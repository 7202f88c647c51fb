// What happens when the caller's own code, a stream or an overridden display, misbehaves.

#include "brief.h"

#include <functional>
#include <stdexcept>

namespace QX {
namespace {

/// A stream buffer that calls `act` at its k-th write.
class Acting final : public std::stringbuf {
public:
    Acting(int k, std::function<void()> act) : left_(k), act_(std::move(act)) {}

    bool acted() const { return left_ <= 0; }

protected:
    std::streamsize xsputn(char const* bytes, std::streamsize count) override {
        step();
        return std::stringbuf::xsputn(bytes, count);
    }
    int_type overflow(int_type c) override {
        step();
        return std::stringbuf::overflow(c);
    }
    int sync() override {
        step();
        return std::stringbuf::sync();
    }

private:
    void step() {
        if (--left_ == 0) {
            act_();
        }
    }

    int left_;
    std::function<void()> act_;
};

char const* const sample = "a 1 2.5 {b 3 {c x } } | d - text";

/// Formats as streams usually do, and in a way that inserts each number by itself.
constexpr std::ios::fmtflags formats[] = {std::ios::skipws | std::ios::dec,
                                          std::ios::skipws | std::ios::dec | std::ios::showpos};

TEST(Callbacks, StreamsThatThrowAtAnyWriteLeaveTheTableAsItWas) {
    for (std::ios::fmtflags const format : formats) {
        for (bool const strict : {false, true}) {
            int k = 1;
            for (bool thrown = true; thrown; ++k) {
                SCOPED_TRACE(k);
                Ptr<Table> const t = brief(sample);
                Acting buffer(k, [] { throw std::runtime_error("refused"); });
                std::ostream os(&buffer);
                os.flags(format);
                if (strict) {
                    os.exceptions(std::ios::badbit);
                }
                bool passed = false;
                try {
                    t->display(os);
                    os << t->get(0, 2);
                } catch (std::runtime_error const& failure) {
                    passed = true;
                    EXPECT_STREQ(failure.what(), "refused");
                }
                thrown = buffer.acted();
                EXPECT_TRUE(passed == (thrown && strict) || (thrown && !strict && !os.good()));
                EXPECT_EQ(brief(*t), sample);
                EXPECT_FALSE(shown(*t).empty()) << "displays as before";
            }
            EXPECT_GT(k, 5);
        }
    }
}

/// A table whose display calls `act` first.
struct Acted final : Table {
    explicit Acted(std::function<void()> const& does) : Table(Str("acted")), act(does) {
        at("n", 1) = Cell(1);
    }

    std::ostream& display(std::ostream& os, int number) const override {
        std::function<void()> const kept(act); // this table may go meanwhile
        kept();
        return os << "acted " << number << '\n';
    }

    std::function<void()> act;
};

/// A table of an ordinary nested table, one that acts, and a text.
Ptr<Table> holding(std::function<void()> const& act) {
    Ptr<Table> table = brief("a {b 3 } | d 4");
    table->at(0, 2) = Cell(Ptr<Table>(new Acted(act)));
    table->at(0, 3) = Cell("last");
    return table;
}

TEST(Callbacks, OverriddenDisplaysThatThrowAreHeardByTheCaller) {
    bool throws = true;
    Ptr<Table> const t = holding([&] {
        if (throws) {
            throw std::runtime_error("refused");
        }
    });
    Ptr<Table> result;
    std::ostringstream os;
    EXPECT_THROW(t->display(os), std::runtime_error);
    EXPECT_THROW(os << Cell(t), std::runtime_error);
    EXPECT_THROW((void)t->append(brief("a 5"), result, true, true), std::runtime_error);
    throws = false;
    EXPECT_NE(shown(*t).find("acted 1\n"), std::string::npos);
    (void)t->append(brief("a 5"), result, true, true);
    EXPECT_EQ(result->items(0), 5U);
}

TEST(Callbacks, OverriddenDisplaysMayDropWhatIsDisplayed) {
    Ptr<Table> t;
    t = holding([&] { t = nullptr; });
    std::ostringstream os;
    t->display(os);
    EXPECT_TRUE(t.isNull());
    EXPECT_NE(os.str().find("<d> 4"), std::string::npos) << "the rest is still written";

    Ptr<Table> result;
    t = holding([&] { result = t = nullptr; });
    (void)t->append(brief("a 5"), result, true, true);
    EXPECT_TRUE(result.isNull()) << "the table that append made went with its handle";
}

TEST(Callbacks, OverriddenDisplaysMayCallTheLibrary) {
    Ptr<Table> t;
    std::string inner;
    t = holding([&] {
        Ptr<Table> made;
        (void)brief("x 2 1")->sort(brief("x"), made, true);
        (void)t->merge(made, made, true); // reads the table that is being displayed
        inner = shown(*brief(sample));
    });
    std::string const outer = shown(*t);
    EXPECT_EQ(inner, shown(*brief(sample)));
    EXPECT_NE(outer.find("acted 1\n"), std::string::npos);
    t->at(0, 2) = Cell(); // breaks the cycle of the closure's handle
}

} // namespace
} // namespace QX
