// The fast ways to find, order and remove rows and to look up names, each against the plain way.

#include "fuzz/cellmaker.h"
#include "fuzz/require.h"
#include "table/model/bodies.h"
#include "table/model/namelookup.h"
#include "table/rows/rowdistinct.h"
#include "table/rows/rowmatch.h"
#include "table/rows/roworder.h"

#include <set>
#include <sstream>

namespace QX {
namespace {

using Cells = std::vector<Cell>;

ColumnView column(Cells const& cells, std::size_t more) {
    return {cells, cells.size() + more, TableImplementation::sharedEmptyCell()};
}

void matchRows(Bytes& bytes, CellMaker& make) {
    Cells const cells = make.cells(bytes.below(20));
    Cells const values = make.cells(bytes.below(20));
    ColumnView const rows = column(cells, bytes.below(3));
    ColumnView const sought = column(values, bytes.below(3));
    Rows const plain = rowsByComparing(rows, sought);
    require(rowsByKeys(rows, sought) == plain, "rows by keys");
    require(rowsOfValues(rows, sought) == plain, "rows of values");
}

void orderRows(Bytes& bytes, CellMaker& make) {
    Cells const cells = make.cells(1 + bytes.below(20));
    ColumnView const keys = column(cells, bytes.below(3));
    Rows rows;
    for (std::size_t n = bytes.below(30); n > 0 && keys.items() > 1; --n) {
        rows.push_back(1 + bytes.below(keys.items() - 1));
    }
    for (bool const ascending : {true, false}) {
        Rows const plain = orderedByComparing(keys, rows, ascending);
        require(ordered({keys}, rows, ascending) == plain, "rows in order");
    }
}

void distinguishRows(CellMaker& make) {
    Ptr<Table> const table = make.table(4, 20);
    TableImplementation const& body = bodyOf(*table);
    require(distinctRows(body.views()) == distinctByComparing(body.views()), "distinct rows");
}

std::string displayed(Cell const& cell) {
    std::ostringstream os;
    os.imbue(std::locale::classic());
    os.precision(17);
    os << cell;
    return os.str();
}

void distinguishTexts(CellMaker& make) {
    Ptr<Table> const table = make.table(4, 12);
    Ptr<Table> result;
    (void)table->append(Ptr<Table>(new Table), result, false, true);
    std::set<std::string> seen;
    std::size_t row = 0;
    for (std::size_t j = 0; j < table->items(0); ++j) {
        std::string key;
        for (std::size_t i = 0; i < table->indices(); ++i) {
            key += ':' + displayed(table->get(i, j));
        }
        if (seen.insert(key).second) {
            for (std::size_t i = 0; i < table->indices(); ++i) {
                require(displayed(result->get(i, row)) == displayed(table->get(i, j)), "the row kept");
            }
            ++row;
        }
    }
    require(result->items(0) == row, "number of rows that display differently");
}

void findNames(Bytes& bytes, CellMaker& make) {
    Ptr<Table> const table = make.table(30, 2);
    Ptr<TableImplementation> const body = heldBody(*table);
    NameLookup lookup(*body);
    for (int n = 0; n < 100 && !bytes.empty(); ++n) {
        Cell const name = make.cell();
        require(lookup.find(name) == body->findIndex(name), "lookup of a name");
        std::size_t const i = bytes.below(body->indices() + 1);
        if (i == body->indices()) {
            body->addSized(name, 1);
        } else if (body->columns()[i].size() > 0) {
            Cell const former = body->get(i, 0);
            body->at(i, 0) = make.cell();
            lookup.renamed(i, former);
        }
    }
}

} // namespace
} // namespace QX

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    QX::Bytes bytes(data, size);
    QX::CellMaker make(bytes);
    switch (bytes.below(5)) {
    case 0:
        QX::matchRows(bytes, make);
        break;
    case 1:
        QX::orderRows(bytes, make);
        break;
    case 2:
        QX::distinguishRows(make);
        break;
    case 3:
        QX::distinguishTexts(make);
        break;
    default:
        QX::findNames(bytes, make);
        break;
    }
    return 0;
}
