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
    Ptr<Table> const more(new Table("more"));
    more->at("fruit", 1) = Str("apple");
    more->at("crates", 1) = 3.0; // the same row is in stock
    more->at("fruit", 2) = Str("quince");
    more->at("crates", 2) = 7.0;

    Ptr<Table> result;
    (void)stock->append(more, result, true, false);
    result->display(std::cout);
    (void)stock->append(more, result, true, true); // no row twice
    result->display(std::cout);
}
