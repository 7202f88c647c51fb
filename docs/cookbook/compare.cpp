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
    later->at("ripe", 1) = Str("yes");

    std::cout << (stock->match(later, false) ? "equal\n" : "different\n");
    Ptr<Table> differences;
    (void)stock->compare(later, differences, false);
    differences->display(std::cout);
}
