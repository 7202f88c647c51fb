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
    stock->at("crates", 3) = 4.5;
    stock->display(std::cout); // exact: what is printed reads back as the same number

    for (std::size_t row = 1; row < stock->items(0); ++row) { // for people
        Str fruit;
        Str crates;
        if (stock->get("fruit", row).get(fruit, 0).ok() &&
            stock->get("crates", row).get(crates, 1).ok()) {
            std::cout << fruit << ": " << crates << '\n';
        }
    }
}
