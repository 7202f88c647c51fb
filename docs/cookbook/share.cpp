#include <qx/qx.h>

#include <iostream>

using QX::Ptr;
using QX::Str;
using QX::Table;

int main() {
    Ptr<Table> const stock(new Table("stock"));
    stock->at("fruit", 1) = Str("plum");

    Table const shared = *stock;              // the same data
    Ptr<Table> const copied = stock->clone(); // data of its own
    stock->at("fruit", 1) = Str("pear");

    std::cout << "shared: " << shared.get("fruit", 1) << '\n';
    std::cout << "cloned: " << copied->get("fruit", 1) << '\n';
}
