#include "brief.h"

#include <iomanip>
#include <locale>

namespace QX {
namespace {

Ptr<Table> bodiless() {
    return Ptr<Table>(new Table(Ptr<TableImplementation>()));
}

TEST(TableDisplay, ShowsOneLinePerIndex) {
    EXPECT_EQ(shown(Table("prices")), "Table - prices\n");
    EXPECT_EQ(shown(Table("prices"), 0), "Table - 0\n");
    EXPECT_EQ(shown(Table("prices"), -2), "Table - -2\n");
    EXPECT_EQ(shown(*brief("| name | | - \"\" | 12.5 ? a")),
              "Table - t\n"
              "Index 0 <>\n"
              "      1 <name> \n"
              "      2 <>\n"
              "      3 <[Empty]>  \n"
              "      4 <## 0 1076428800> [Undefined] a \n");
    EXPECT_EQ(shown(*bodiless(), 3), "Null table\n");
}

TEST(TableDisplay, NumbersChildrenFromTheirParent) {
    EXPECT_EQ(shown(*brief("{A holds {C deep } } 1 | | x 2 {B }")), "Table - 1\n"
                                                                    "Index 0 <deep> \n"
                                                                    "Table - 0\n"
                                                                    "Index 0 <holds> `Table 1' \n"
                                                                    "Table - 1\n"
                                                                    "Table - t\n"
                                                                    "Index 0 <`Table 0'> 1 \n"
                                                                    "      1 <>\n"
                                                                    "      2 <x> 2 `Table 1' \n");
    EXPECT_EQ(shown(*brief("1 {C } {D }"), 5),
              "Table - 6\nTable - 7\nTable - 5\nIndex 0 <1> `Table 6' `Table 7' \n");
    Ptr<Table> const holder = brief("");
    holder->at(0, 0) = Cell(bodiless());
    EXPECT_EQ(shown(*holder), "Null table\nTable - t\nIndex 0 <`Table 0'> \n");
}

TEST(TableDisplay, FollowsTheStreamsFormatting) {
    std::ostringstream os;
    os << std::hex << std::showbase << std::setprecision(3);
    EXPECT_EQ(&brief("1234567 12.5 a | {n }")->display(os, 15), &os);
    EXPECT_EQ(os.str(), "Table - 0x10\nTable - 0xf\nIndex 0 <1.23e+06> ## 0 0x40290000 a \n"
                        "      0x1 <`Table 0x10'> \n");
}

struct Loud : Table {
    using Table::Table;
    std::ostream& display(std::ostream& os, int number) const override {
        return Table::display(os << "loud " << number << ": ", number);
    }
};

TEST(TableDisplay, IsVirtualForNestedTables) {
    Ptr<Table> const holder = brief("");
    holder->at(0, 0) = Cell(Ptr<Table>(new Loud("l")));
    EXPECT_EQ(shown(*holder), "loud 0: Table - 0\nTable - t\nIndex 0 <`Table 0'> \n");
    EXPECT_EQ(printed(holder->get(0, 0)), "loud -1: Table - l\n");
}

/// Takes what a table holds away from it while it is displayed, and returns a stream of its own.
struct Taking : Table {
    explicit Taking(Table* other) : Table("a table of a longer name"), victim(other) {}
    std::ostream& display(std::ostream& os, int number) const override {
        victim->at(0, 0) = Cell();
        *victim = Table("another");
        os << name() << ' ' << number << '\n';
        return elsewhere;
    }
    Table* victim;
    static inline std::ostringstream elsewhere;
};

TEST(TableDisplay, HoldsTheTablesThatItWrites) {
    auto const outerOf = [](Cell const& cell) {
        Ptr<Table> const outer = brief("", "outer");
        outer->at(0, 0) = cell;
        return outer;
    };
    auto const taking = [](Table* victim) { return Cell(Ptr<Table>(new Taking(victim))); };
    std::string const ended = "Table - outer\nIndex 0 <[Empty]> \n";
    Ptr<Table> const outer = outerOf(Cell());
    outer->at(0, 0) = taking(outer.get());
    EXPECT_EQ(shown(*outer), "a table of a longer name 0\n" + ended);

    Ptr<Table> inner(new Table("inner"));
    inner->at(0, 0) = taking(inner.get());
    EXPECT_EQ(shown(*outerOf(Cell(inner))), "a table of a longer name 1\nTable - 0\nIndex 0 <[Empty]> \n"
                                            "Table - outer\nIndex 0 <`Table 0'> \n");

    Ptr<Table> const around = outerOf(Cell());
    inner = Ptr<Table>(new Table("inner"));
    inner->at(0, 0) = taking(around.get());
    around->at(0, 0) = Cell(inner);
    inner.reset();
    EXPECT_EQ(shown(*around), "a table of a longer name 1\nTable - 0\nIndex 0 <`Table 1'> \n" + ended);

    Ptr<Table> const owner = outerOf(Cell());
    owner->at(0, 0) = taking(owner.get());
    std::ostringstream os;
    EXPECT_EQ(&(os << owner->get(0, 0)), &os);
    EXPECT_EQ(os.str(), "a table of a longer name -1\n");
}

/// Takes so many bytes.
struct Narrow : std::streambuf {
    explicit Narrow(std::size_t room) : text(room, '.') { setp(text.data(), text.data() + text.size()); }
    std::string text;
};

TEST(TableDisplay, WritesTheSameBytesToEveryStream) {
    Ptr<Table> const table =
        brief("a \"\" - ? {n 5 } !boom | n 0 -0 7 -999999 1e6 1234567 4e15 1e300 0.1 "
              "2.9999999999999996 1e-17 inf -inf nan | long");
    table->at(2, Table::npos) = Str(std::string(5000, 'x') + '\n');
    for (std::size_t j = 0; j < 400; ++j) {
        table->at(3, j) = Str("one of many texts");
    }
    for (std::streamsize const precision : {6, 0, 9, 17, 30}) {
        for (std::size_t const room : {100000U, 5200U, 150U, 0U}) {
            Narrow bytes(room);
            Narrow pieces(room);
            std::ostream direct(&bytes);
            std::ostream ownFacets(&pieces);
            direct.precision(precision);
            ownFacets.precision(precision);
            ownFacets.imbue(std::locale(std::locale::classic(), new std::numpunct<char>));
            table->display(direct);
            table->display(ownFacets);
            EXPECT_EQ(bytes.text, pieces.text) << precision << ", " << room;
            EXPECT_EQ(direct.rdstate(), ownFacets.rdstate());
        }
    }
}

/// Counts the flushes that reach it.
struct FlushCounter : std::stringbuf {
    int sync() override {
        ++flushes;
        return 0;
    }
    int flushes = 0;
};

TEST(TableDisplay, FlushesEachLine) {
    FlushCounter buffer;
    std::ostream os(&buffer);
    brief("A | B")->display(os);
    EXPECT_EQ(buffer.flushes, 3);
}

/// A stream that adds to a table whenever something is written to it, and overwrites what it shows.
class Meddler final : public std::stringbuf {
public:
    explicit Meddler(Ptr<Table> table) : table_(std::move(table)) {}

protected:
    std::streamsize xsputn(char const* bytes, std::streamsize count) override {
        meddle(count);
        return std::stringbuf::xsputn(bytes, count);
    }

private:
    void meddle(std::streamsize count) {
        if (table_->indices() < 40) {
            table_->at(Table::npos, 3) = Cell("more");
            table_->at(0, Table::npos) = Cell("more");
        }
        if (count > 5000) {
            table_->at(0, 1) = Cell("gone"); // while its long text is written
        }
    }

    Ptr<Table> table_;
};

TEST(TableDisplay, StreamMayAddToTheTable) {
    for (bool const plain : {true, false}) {
        Ptr<Table> const t = brief("a 1 2 {b 3 } | c 4");
        t->at(0, 1) = Cell(Str(std::string(9000, 'x')));
        Meddler meddler(t);
        std::ostream os(&meddler);
        os.setf(plain ? std::ios::fmtflags() : std::ios::boolalpha);
        t->display(os);
        EXPECT_GE(t->indices(), 40U);
        EXPECT_NE(meddler.str().find("xxx"), std::string::npos);
    }
}

} // namespace
} // namespace QX
