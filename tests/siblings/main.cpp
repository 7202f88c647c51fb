#include <qx/qx.h>

#include <iostream>
#include <sstream>

using QX::Cell;
using QX::Ptr;
using QX::Str;
using QX::Table;

namespace {

int failures = 0;

void expect(char const* what, std::string const& found, std::string const& expected) {
    if (found != expected) {
        std::cout << what << ": " << found << " instead of " << expected << '\n';
        ++failures;
    }
}

template <typename T>
std::string printed(T const& value) {
    std::ostringstream os;
    os << value;
    return os.str();
}

Ptr<Table> stock() {
    Ptr<Table> table(new Table("stock"));
    char const* const texts[] = {"pear", "Apple", "a rather long name of a fruit", "apple",
                                 "2026-02-30"};
    for (std::size_t row = 1; row <= 5; ++row) {
        table->at("fruit", row) = Str(texts[row - 1]);
        table->at("crates", row) = double(row);
    }
    return table;
}

void cells() {
    QX::Date date;
    bool flag = false;
    expect("date", Cell(Str("2026-02-30")).get(date).ok() ? "read" : "not read", "read");
    expect("date", date.getDate(Str()).get(), "2026-02-30");
    expect("flag", Cell(Str("true")).get(flag).ok() && flag ? "true" : "false", "true");
    Str error;
    (void)Cell(QX::Status(Str("lost"), QX::Status::Error, -1)).get(error, 0);
    expect("error", printed(error), "#Err: lost");
    expect("error", Cell(Str("#err: lost")).isA() == Cell::ErrorCell ? "error" : "text", "error");
    expect("number", printed(Cell(1.0).operation(Cell(4.0), "/")), "## 0 1070596096");
    expect("case", Cell(Str("Pear")).compare(Cell(Str("pEAR")), true) ? "equal" : "different", "equal");
    expect("case", Cell(Str("Pear")).compare(Cell(Str("pear")), false) ? "equal" : "different",
           "different");
}

void tables() {
    Ptr<Table> const key(new Table);
    key->at("fruit", 0);
    Ptr<Table> sorted;
    if (!stock()->sort(key, sorted, true).ok()) {
        expect("sort", "failed", "");
    }
    std::ostringstream os;
    sorted->display(os);
    expect("sort", os.str(),
           "Table - stock\nIndex 0 <fruit> 2026-02-30 Apple a rather long name of a fruit apple pear \n"
           "      1 <crates> 5 2 3 4 1 \n");
    sorted->atXPath(Str("a/b[2]"), true) = Str("found");
    expect("path", printed(sorted->atXPath(Str("a/b[2]"), Cell())), "found");
    try {
        (void)sorted->merge(Ptr<Table const>(), sorted, false);
    } catch (QX::Except const& e) {
        expect("exception", printed(e), "<No operand table provided>\n");
    }
}

void logs() {
    std::ostringstream os;
    QX::Log log;
    log.setStream(&os, false);
    log.send(Str("text"), QX::Log::Info);
    QX::Log const moved(std::move(log));
    expect("log", os.str(), "30:M02:2026 12:34:56 -Level 4: text\n");
}

} // namespace

int main() {
    cells();
    tables();
    logs();
    return failures == 0 ? 0 : 1;
}
