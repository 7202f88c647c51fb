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
    Ptr<Table> const later = stock->clone();
    later->at("crates", 2) = 5.0;

    Ptr<Table> numbers;
    if (!stock->makeTemplate(later, numbers).ok()) { // marks where both hold numbers
        return 1;
    }
    numbers->display(std::cout);

    Ptr<Table> change;
    (void)later->operation(stock, "-", numbers, change);
    change->display(std::cout);
}
