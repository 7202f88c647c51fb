#include <qx/qx.h>

#include <iostream>

using QX::Ptr;
using QX::Str;
using QX::Table;

int main() {
    Ptr<Table> const stock(new Table("stock"));
    stock->at("fruit", 1) = Str("plum");
    stock->at("crates", 1) = 12.0;
    stock->at("fruit", 2) = Str("apple");
    stock->at("crates", 2) = 3.0;
    stock->at("fruit", 3) = Str("pear");
    stock->at("crates", 3) = 4.0;
    Ptr<Table> numbers;
    if (!stock->makeTemplate(stock, numbers).ok()) {
        return 1;
    }
    double total = 0;
    (void)stock->unaryOperation("+", numbers, total);
    std::cout << total << " crates\n";
}
