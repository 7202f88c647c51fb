#include "brief.h"
#include "module/plugin.h"

#include <stdexcept>

namespace QX {
namespace {

TEST(Module, EndsTheObjectsThatItMade) {
    Ptr<plugin::Part> part = plugin::makePart();
    Ptr<plugin::Part> const other = plugin::makePart();
    EXPECT_STREQ(blockOf(part)->location(), "qxplugin");
    EXPECT_EQ(plugin::partsAlive(), 2);
    Ptr<plugin::Part> copy = part;
    part.reset();
    EXPECT_EQ(plugin::partsAlive(), 2);
    copy = other;
    EXPECT_EQ(plugin::partsAlive(), 1);
}

TEST(Module, TagsItsBlocks) {
    EXPECT_STREQ(blockOf(Ptr<Table>(new Table))->location(), "qxclient");
    EXPECT_STREQ(blockOf(Table("t").clone())->location(), "qxdll");
    EXPECT_STREQ(blockOf(plugin::makeTable())->location(), "qxplugin");
}

TEST(Module, KeepsItsBlocksFromTheGenericDeleter) {
    PtrRefCount* const block = plugin::makeBlock(&PtrRefCount::release);
    int object = 7;
    block->decrement();
    try {
        block->remove(&object);
        FAIL() << "the block of another module was accepted";
    } catch (std::logic_error const& e) {
        EXPECT_STREQ(e.what(), "Deletion across dll boundary");
    }
    EXPECT_STREQ(block->location(), "qxplugin");
    block->increment();
    EXPECT_EQ(block->count(), 1U);
    EXPECT_EQ(object, 7);
    plugin::endBlock(block);
}

TEST(Module, CatchesWhatTheLibraryRaises) {
    EXPECT_STREQ(plugin::catchExcept().get(), "No operand table provided");
    try {
        Ptr<Table> result;
        (void)plugin::makeTable()->merge(Ptr<Table const>(), result, false);
        FAIL() << "nothing was raised";
    } catch (Except const& e) {
        EXPECT_STREQ(e.report().message(false).get(), "No operand table provided");
    }
    try {
        plugin::throwExcept();
        FAIL() << "nothing was raised";
    } catch (Except const& e) {
        EXPECT_EQ(written([&](std::ostream& os) { os << e; }), "plugin.cpp(1): from the plugin\n");
    }
}

TEST(Module, OverridesWhatTheLibraryCalls) {
    Ptr<Moniker> const moniker = plugin::makeMoniker();
    EXPECT_STREQ(moniker->create("it").get(), "<it>");
    EXPECT_STREQ(moniker->moniker().get(), "<it>");
    EXPECT_EQ(printed(Cell(plugin::makeTable())), "table of the plugin -1\n");
    Ptr<Table> const outer = brief("A", "outer");
    outer->at(0, 1) = Cell(plugin::makeTable());
    outer->at(0, 2) = Cell(plugin::makeTable());
    EXPECT_EQ(shown(*outer), "table of the plugin 0\ntable of the plugin 1\n"
                             "Table - outer\nIndex 0 <A> `Table 0' `Table 1' \n");
}

TEST(Module, ExchangesCellsOfEachKind) {
    struct Value {
        Cell::CellType kind;
        char const* text;
    };
    Value const values[] = {
        {Cell::EmptyCell, ""},
        {Cell::StringCell, "text"},
        {Cell::NumericCell, "12.5"},
        {Cell::ErrorCell, "#Err: lost"},
        {Cell::TableCell, "<Cell translation to string not supported for this type>"},
    };
    Ptr<Table> const ours = brief("values - text 12.5 !lost {t }");
    Ptr<Table const> const theirs = plugin::makeValues();
    std::size_t item = 0;
    for (Value const& value : values) {
        SCOPED_TRACE(value.kind);
        ++item;
        EXPECT_EQ(theirs->get("values", item).isA(), value.kind);
        EXPECT_EQ(text(theirs->get("values", item)), value.text);
        EXPECT_STREQ(plugin::textOf(ours->get("values", item)).get(), value.text);
    }
}

} // namespace
} // namespace QX
