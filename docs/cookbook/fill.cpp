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
    values->at("crates", 1) = 0.0;        // in every item of an index
    values->at("counted", 1) = Str("no"); // of a new one, too

    Ptr<Table> result;
    QX::Status const status = stock->fill(values, result, -1);
    if (status.ok()) {
        result->display(std::cout);
    }
}
