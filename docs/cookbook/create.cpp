#include <qx/qx.h>

#include <iostream>

using QX::Str;
using QX::Table;

int main() {
    Table stock("stock");
    stock.at("fruit", 1) = Str("plum"); // a new name adds an index
    stock.at("crates", 1) = 12.0;
    stock.at("fruit", Table::npos) = Str("apple"); // npos adds an item
    stock.at("crates", 2) = 3.0;
    stock.at(2, 0) = Str("note"); // by number; item 0 is the name

    std::cout << stock.name() << ": " << stock.indices() << " indices of " << stock.items(0)
              << " items\n";
    stock.display(std::cout);
}
