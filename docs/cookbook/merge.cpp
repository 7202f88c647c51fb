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
    Ptr<Table> const news(new Table("news"));
    news->at("crates", 1) = 11.0;
    news->at("ripe", 1) = Str("yes");

    Ptr<Table> result;
    (void)stock->merge(news, result, false); // beside each other
    result->display(std::cout);
    (void)stock->merge(news, result, true); // one over the other, by name
    result->display(std::cout);
}
