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
    Ptr<Table> const values(new Table("values"));
    values->at("fruit", 1) = Str("pear");
    values->at("fruit", 2) = Str("plum");

    Ptr<Table> result;
    if (!stock->filter(values, result, false, false).ok()) { // in the order of the values
        return 1;
    }
    result->display(std::cout);
    if (!stock->filter(values, result, false, true).ok()) { // all others
        return 1;
    }
    result->display(std::cout);
}
