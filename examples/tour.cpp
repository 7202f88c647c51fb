// A tour of the library: tables by path, attributes, one operation of each sort, errors and the log.
// Writes what it does to standard output, and its log to the file named on the command line.

#include <qx/qx.h>

#include <iostream>

using QX::Cell;
using QX::Ptr;
using QX::Status;
using QX::Str;
using QX::Table;

namespace {

/// Makes a table of two indices, each its name and three items.
Ptr<Table> makeStock(Str const& name, double apples, double pears) {
    Ptr<Table> stock(new Table(name));
    stock->at("fruit", 1) = Cell(Str("plum")); // a new name adds an index, item 0 of which is the name
    stock->at("fruit", 2) = Cell(Str("apple"));
    stock->at("fruit", Table::npos) = Cell(Str("pear")); // npos appends
    stock->at("crates", 1) = Cell(12.5);
    stock->at("crates", 2) = Cell(apples);
    stock->at("crates", 3) = Cell(pears);
    return stock;
}

/// Prints a table under a title.
void show(char const* title, Ptr<Table> const& table) {
    std::cout << "\n" << title << "\n";
    table->display(std::cout);
}

/// Prints the result of an operation, or why there is none.
void show(char const* title, Status const& status, Ptr<Table> const& result) {
    if (status.ok()) {
        show(title, result);
    } else {
        std::cout << "\n" << title << " " << status << "\n";
    }
}

/// Values deep inside nested tables are reached, and made, by path.
void nest(Ptr<Table> const& stock) {
    Table farm("farm");
    farm.at("stock", 1) = Cell(stock); // the table itself, not a copy
    farm.atXPath("owner/address/town", true) = Cell(Str("Malus"));
    std::cout << "crates of apples: " << farm.atXPath("stock/crates[2]", Cell()) << "\n";
    std::cout << "town: " << farm.atXPath("owner/address/town", Cell()) << "\n";
}

/// Attributes say something about a table without being part of it.
void describe(Ptr<Table> const& stock) {
    (void)stock->setAttribute("source/counted", Cell(Str("2026-09-30"))); // Ok, or it raises
    Cell counted;
    (void)stock->getAttribute("source/counted", counted); // always Ok
    QX::Date date;
    Status const readable = counted.get(date);
    std::cout << "counted on: " << counted << (readable.ok() ? ", a date" : ", no date") << "\n";
}

/// Every operation builds a new table, which shares its cells with those it was built from.
void operate(Ptr<Table> const& before, Ptr<Table> const& after) {
    Ptr<Table> key(new Table);
    key->at("fruit", 0); // an index with a name and no other item
    Ptr<Table> result;
    Status status = before->sort(key, result, true);
    show("Sorted by fruit:", status, result);

    Ptr<Table> condition(new Table);
    condition->at("fruit", 1) = Cell(Str("pear"));
    status = after->filter(condition, result, false, false);
    show("Only the pears:", status, result);

    status = before->append(after, result, true, true);
    show("Both counts, no row twice:", status, result);

    status = before->compare(after, result, false);
    show("What has changed:", status, result);

    Ptr<Table> numbers;
    double total = 0;
    if (before->makeTemplate(after, numbers).ok()) {
        status = after->operation(before, "-", numbers, result);
        show("By how much:", status, result);
        status = after->unaryOperation("+", numbers, total);
    }
    std::cout << "\nAll crates: " << total << "\n";
}

/// Ordinary failures come back as a Status; a broken precondition raises Except.
void fail(Ptr<Table> const& stock, QX::Log& log) {
    int crates = 0;
    Status whole = stock->get("crates", 1).get(crates);
    std::cout << "\n12.5 as an int: " << crates << ", " << whole.message(false) << "\n";
    log.send(whole.message(false), QX::Log::Warning);
    try {
        Ptr<Table> result;
        whole = stock->append(Ptr<Table>(), result, false, false);
    } catch (QX::Except const& e) {
        std::cout << "append: " << e.report().message(false) << "\n";
        log.send(e, QX::Log::Error);
    }
}

} // namespace

int main(int argc, char** argv) {
    QX::Log log;
    log.setName("tour");
    log.setDateDisplay(false); // so that two tours write the same
    log.setTimeDisplay(false);
    log.setStream(Str(argc > 1 ? argv[1] : "tour.log"));

    Ptr<Table> const before = makeStock("before", 3, 4);
    Ptr<Table> const after = makeStock("after", 5, 4);
    show("A table:", before);
    nest(before);
    describe(before);
    operate(before, after);
    fail(before, log);
    log.send("Done", QX::Log::Info);
}
