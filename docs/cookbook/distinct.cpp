#include <qx/qx.h>

#include <iostream>

using QX::Ptr;
using QX::Str;
using QX::Table;

int main() {
    Ptr<Table> const stock(new Table("stock"));
    stock->at("fruit", 1) = Str("plum");
    stock->at("crates", 1) = 1.0;
    stock->at("fruit", 2) = Str("pear");
    stock->at("crates", 2) = 2.0;
    stock->at("fruit", 3) = Str("plum");
    stock->at("crates", 3) = 1.0;
    Ptr<Table> result;
    if (!stock->select(Ptr<Table>(new Table), result, true, true, true)
             .ok()) { // all indices, no row twice
        return 1;
    }
    result->display(std::cout);
}
