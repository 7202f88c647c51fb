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
    Ptr<Table> const changes(new Table("changes"));
    changes->at("crates", 2) = 30.0; // item 1 is empty and leaves what is beneath
    changes->at("ripe", 3) = Str("yes");

    Ptr<Table> result;
    (void)stock->overlay(changes, result, true, false, false); // only what stock has
    result->display(std::cout);
    (void)stock->overlay(changes, result, false, false, true); // the new index as well
    result->display(std::cout);
}
