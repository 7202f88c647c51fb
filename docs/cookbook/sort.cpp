#include <qx/qx.h>

#include <iostream>

using QX::Ptr;
using QX::Str;
using QX::Table;

int main() {
    Ptr<Table> const stock(new Table("stock"));
    stock->at("fruit", 1) = Str("plum");
    stock->at("crates", 1) = 4.0;
    stock->at("fruit", 2) = Str("apple");
    stock->at("crates", 2) = 12.0;
    stock->at("fruit", 3) = Str("pear");
    stock->at("crates", 3) = 4.0;
    Ptr<Table> const keys(new Table("keys"));
    keys->at("crates", 0); // first by crates
    keys->at("fruit", 0);  // then by fruit

    Ptr<Table> result;
    if (!stock->sort(keys, result, true).ok()) {
        return 1;
    }
    result->display(std::cout);
    if (!stock->sort(keys, result, false).ok()) {
        return 1;
    }
    result->display(std::cout);
}
