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
    Ptr<Table> const wanted(new Table("wanted"));
    wanted->at("crates", 0);
    wanted->at("fruit", 1) = Str("kind"); // item 1 is a new name

    Ptr<Table> result;
    if (!stock->select(wanted, result, false, false, false).ok()) {
        return 1;
    }
    result->display(std::cout);
}
